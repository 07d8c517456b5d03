#include "ctl/ParameterSheet.h"

namespace zlt::ctl {

/// A mark that nobody has set is clear.
ParameterSheet::ParameterSheet() {
    for (const ParameterField field : parameterFields)
        switch (parameterRow(field).encoding) {
            case Encoding::bits:
            case Encoding::nonZero:
            case Encoding::one:
                set[field] = "0";
                break;
            case Encoding::text:
            case Encoding::number:
            case Encoding::deviceName:
            case Encoding::baudCode:
                break;
        }
}

}  // namespace zlt::ctl
