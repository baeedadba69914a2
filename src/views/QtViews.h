#pragma once

// Installs the Qt factory of every feature: the program's screens. Each feature's Qt
// creators live in its own views/Qt<Feature>Views.cpp.
void installQtViews();
