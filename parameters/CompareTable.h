#pragma once

#include <optional>
#include <string>
#include <vector>

#include "parameters/Comparison.h"

namespace zlt {

/// One line of the table that holds screen, controller and file side by side. UTF-8; empty where
/// there is nothing to hold against the others.
struct CompareRow {
    std::string value;
    std::string onScreen;
    std::string inController;
    std::string afterPowerUp;
    std::string asOpened;
};

/// What differs, in reading order; of the bits of the polarity word, the word's number first.
/// `opened` are the values of the file that was opened last, Latin-1.
std::vector<CompareRow> compareTable(const ParameterValues& shown, const DeviceCopy& copy,
                                     FirmwareVersion firmware,
                                     const std::optional<ParameterValues>& opened);

}  // namespace zlt
