#include "kit/common/faults.h"

#include "base/printable.h"

std::string ToString(Fault const& fault)
{
    return Printable(fault.file + (fault.line > 0 ? ":" + std::to_string(fault.line) : "") + ": "
        + fault.message);
}
