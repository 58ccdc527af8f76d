// Registers the base class of all that draws itself.
#include "AcGi.h"

HOST_RX_DEFINE_ABSTRACT(AcGiDrawable, AcRxObject)
