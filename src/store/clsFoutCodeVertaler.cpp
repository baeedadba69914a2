#include "store/clsFoutCodeVertaler.h"

QString clsFoutCodeVertaler::GebruikerMelding(const Error& error) const {
    return "Er is een fout opgetreden bij de verwerking van uw opdracht.\r\nDetails: " +
           QString::number(error.number()) + " - " + error.description();
}
