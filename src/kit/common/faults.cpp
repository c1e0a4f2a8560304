#include "kit/common/faults.h"

#include "base/printable.h"

Fault ToFault(Failure const& failure)
{
    return { ToUtf8(failure.file), failure.line, ToUtf8(failure.reason) };
}

std::string ToString(Fault const& fault)
{
    return Printable(fault.file + (fault.line > 0 ? ":" + std::to_string(fault.line) : "") + ": "
        + fault.message);
}
