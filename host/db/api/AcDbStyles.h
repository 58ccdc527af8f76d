// What the layers and line types of a drawing look like, for those who paint a display list.
#pragma once

#include "AcDbDatabase.h"
#include "AcGiReceivers.h"

#include <memory>

// Reads the records as they stand at the time of painting. The drawing must outlive it.
std::unique_ptr<GiStyleResolver> acdbNewStyleResolver(const AcDbDatabase& drawing);
