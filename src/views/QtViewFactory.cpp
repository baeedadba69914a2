#include "views/QtViewFactory.h"

QtViewFactory::~QtViewFactory() = default;
