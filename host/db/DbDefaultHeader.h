// Header variables of a new metric drawing.
#pragma once

#include "DbObjectAccess.h"

const std::map<std::wstring, DbHeaderValue>& dbDefaultHeader();
