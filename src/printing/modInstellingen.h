#pragma once

#include "records/clsObjInstellingen.h"

// The settings row as it is stored now (the first row of Instellingen); raises an Error
// when the table has none.
clsObjInstellingen huidigeInstellingen();
