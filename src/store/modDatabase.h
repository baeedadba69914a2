#pragma once

#include <QString>
#include <memory>

#include "store/Connection.h"

// The second connection, for direct stock updates, to daa.mdb beside the program.
extern QString gOdbcPad;
extern std::unique_ptr<Connection> gOdbcConnectie;

void UpdateVoorraad(qint32 artikelId, qint32 aantal, bool optellen);
bool OpenOdbcConnectie();
QString GeefOdbcConnectieString();
void ZetOdbcPad(const QString& pad);
QString BouwOdbcConnectieString();
