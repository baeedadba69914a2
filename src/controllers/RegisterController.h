#pragma once

#include <QObject>
#include <cstddef>
#include <functional>
#include <memory>

// The four registers the main menu opens, each run by its own list controller.
enum class Register { Artikelen, Klanten, Facturen, Instellingen };
inline constexpr std::size_t kRegisterCount = 4;

// What the application controller needs of a register's list controller: start it (or bring
// its screen back) in management mode, and hear when its screen has closed. The list
// controllers raise their own closing events (SluitArtikel, ...) and raise closed() with them.
class RegisterController : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void start() = 0;

Q_SIGNALS:
    void closed();
};

// Makes the list controller of a register; none when the program has no such register.
using RegisterCreator = std::function<std::unique_ptr<RegisterController>(Register)>;

// The program's own list controllers.
std::unique_ptr<RegisterController> createProgramRegister(Register which);
