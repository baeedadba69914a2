#pragma once

// Start-up checks of the database file and the schema upgrade.
class clsObjAppInstellingen {
public:
    // True when db.daa exists (it is then made writable); false when it does not.
    bool DatabaseNietOpAlleenLezen();
    void AanpassenDatabase();
};
