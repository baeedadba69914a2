#pragma once

#include <QString>

#include "base/Error.h"

class clsFoutCodeVertaler {
public:
    QString GebruikerMelding(const Error& error) const;
};

class clsFoutCodes {};
