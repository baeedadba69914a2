#pragma once

#include <QObject>
#include <array>
#include <memory>

#include "controllers/RegisterController.h"

// The application controller: holds one list controller per register, made on first use
// and forgotten when that register reports that its screen has closed, so a register is
// open at most once.
class clsControllerFactuur : public QObject {
    Q_OBJECT

public:
    explicit clsControllerFactuur(RegisterCreator createRegister = createProgramRegister);
    ~clsControllerFactuur() override;

    void StartArtikelen();
    void StartFacturen();
    void StartInstellingen();
    void StartKlanten();
    void Afsluiten();
    void StartHelp();
    void StartWebsite();

    // The list controller of a register while it is open; none otherwise.
    RegisterController* openRegister(Register which) const;

private:
    using Slot = std::unique_ptr<RegisterController>;

    void start(Register which);
    void forget(Register which);

    RegisterCreator createRegister_;
    std::array<Slot, kRegisterCount> registers_;
};
