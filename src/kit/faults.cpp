#include "kit/faults.h"

std::string ToString(Fault const& fault)
{
    return fault.file + (fault.line > 0 ? ":" + std::to_string(fault.line) : "") + ": " + fault.message;
}
