#include "StoreTable.h"
