// The "added" variant's one addition: a new exported function.
#include <Orvane/orvane_export.h>

namespace Orvane {

ORVANE_EXPORT int abiGuardAddedFunction(int value);

int abiGuardAddedFunction(int value)
{
    return value + 1;
}

} // namespace Orvane
