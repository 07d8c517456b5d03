#include "programs/ProgramState.h"

#include "widgets/ReadOut.h"

namespace zlt {

std::optional<std::string_view> programStateText(std::int32_t code) {
    switch (code) {
        case 0:
            return "Idle";
        case 1:
            return "Running";
        case 2:
            return "Paused";
        case 4:
            return "Errored";
        default:
            return std::nullopt;
    }
}

void showProgramState(ReadOut& readOut, std::string_view text) {
    using Meaning = ReadOut::Meaning;
    readOut.showState(text, text == programStateText(1)   ? Meaning::underWay
                            : text == programStateText(4) ? Meaning::atFault
                                                          : Meaning::atRest);
}

}  // namespace zlt
