#pragma once

#include "programs/ProgramState.h"
#include "widgets/ReadOut.h"

namespace zlt {

/// Shows a program state's text; one of a program that runs or has failed stands out.
inline void showProgramState(ReadOut& readOut, std::string_view text) {
    using Meaning = ReadOut::Meaning;
    readOut.showState(text, text == programStateText(1)   ? Meaning::underWay
                            : text == programStateText(4) ? Meaning::atFault
                                                          : Meaning::atRest);
}

}  // namespace zlt
