#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "link/BusLog.h"

namespace zlt {

/// Bytes of the wire, each one seen: a control byte by its name or number, "<CR>" and "<9F>", and
/// so the bracket itself. UTF-8.
std::string shownBytes(std::string_view wire);

/// What is told of an exchange.
enum class BusColumn {
    port,     ///< "COM3 9600"
    device,   ///< the address
    askedBy,  ///< "screen", "poll", "probe"
    command,
    reply,
    taken,   ///< "1.24 ms"
    result,  ///< empty for a reply
};
/// The text of one column, UTF-8.
std::string cellOf(const BusRecord& record, BusColumn column);

/// Whether one of the columns, the time taken apart, holds `text`, in capitals or not; the empty
/// text is held by all.
bool holdsText(const BusRecord& record, std::string_view text);

/// The exchanges as a text of columns, a heading above them, each line ended by `lineEnd`.
std::string busTable(const std::vector<BusRecord>& records, std::string_view lineEnd);

}  // namespace zlt
