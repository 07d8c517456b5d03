#pragma once

#include <map>
#include <random>
#include <string>
#include <string_view>

#include "simulator/Time.h"

namespace zlt::sim {

/// The faults of one port that concern the answers' bytes. Several may be on at once.
struct Misbehaviour {
    bool silent = false;
    bool babble = false;   ///< bytes without an end, asked or not
    bool garbage = false;  ///< random bytes in place of an answer
    bool empty = false;    ///< an answer that is only its end
    bool partial = false;  ///< half of an answer and no end
    Time delay{0};         ///< before each answer
    Time drip{0};          ///< between two bytes; 0: as fast as the line
    std::string stray;     ///< sent after each answer
    std::map<std::string, std::string, std::less<>> answers;  ///< fixed answers to commands

    /// Turns a fault on or off by a line such as "delay 150" or "babble off"; gives an empty text,
    /// or what is wrong with the line. `known` tells whether the word is one of the faults at all.
    std::string apply(std::string_view line, bool& known);
};

/// What goes onto the wire for an answer, its end included. `header` is what comes before it.
std::string spoiled(const Misbehaviour& faults, std::string_view command, const std::string& header,
                    const std::string& answer, std::mt19937& random);

}  // namespace zlt::sim
