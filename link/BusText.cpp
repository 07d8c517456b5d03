#include "link/BusText.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "link/Values.h"
#include "platform/Text.h"

namespace zlt {
namespace {

constexpr std::array<std::string_view, 32> controlNames{
    "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT",  "LF",
    "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
    "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};

std::string shownByte(unsigned char byte) {
    if (byte < ' ')
        return "<" + std::string(controlNames.at(byte)) + ">";
    if (byte != '<' && (byte < 0x7F || byte >= 0xA0))
        return utf8FromCodePoint(byte);
    std::array<char, 8> number{};
    std::snprintf(number.data(), number.size(), "<%02X>", static_cast<unsigned>(byte));
    return number.data();
}

template <std::size_t room>
std::string shownKept(const KeptBytes<room>& kept) {
    std::string front = shownBytes(kept.bytes());
    if (kept.leftOut() == 0)
        return front;
    return front + "\xE2\x80\xA6 (" + std::to_string(kept.leftOut()) + " more)";
}

std::string takenText(std::chrono::microseconds taken) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2f ms", static_cast<double>(taken.count()) / 1000);
    return text.data();
}

std::string askerText(Asker asker) {
    switch (asker) {
        case Asker::poll:
            return "poll";
        case Asker::probe:
            return "probe";
        case Asker::screen:
            break;
    }
    return "screen";
}

std::string resultText(Outcome outcome) {
    switch (outcome) {
        case Outcome::noneAwaited:
            return "broadcast";
        case Outcome::timedOut:
            return "TIME-OUT";
        case Outcome::portLost:
            return "PORT LOST";
        case Outcome::dropped:
            return "dropped";
        case Outcome::answered:
            break;
    }
    return {};
}

bool contains(std::string_view text, std::string_view part) {
    const auto same = [](char a, char b) {
        const auto lower = [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        };
        return lower(a) == lower(b);
    };
    return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

/// `text` and blanks up to the column's width, in characters; two at the least.
std::string padded(const std::string& text, std::size_t width) {
    const auto characters =
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        }));
    return text + std::string(std::max<std::size_t>(2, width - std::min(width, characters)), ' ');
}

struct Column {
    BusColumn column;
    std::string_view heading;
    std::size_t width;  ///< in a table of text
};
constexpr std::array<Column, 7> columns{{{BusColumn::port, "Port", 14},
                                         {BusColumn::device, "Device", 8},
                                         {BusColumn::askedBy, "Asked by", 10},
                                         {BusColumn::command, "Command", 18},
                                         {BusColumn::reply, "Reply", 26},
                                         {BusColumn::taken, "Took", 12},
                                         {BusColumn::result, "Result", 0}}};

template <class Cell>
std::string tableLine(const std::string& time, const Cell& cell) {
    std::string line = padded(time, 25);
    for (const Column& column : columns)
        line += padded(cell(column), column.width);
    return line.erase(line.find_last_not_of(' ') + 1);
}

}  // namespace

std::string shownBytes(std::string_view wire) {
    std::string shown;
    shown.reserve(wire.size());
    for (const char c : wire)
        shown += shownByte(static_cast<unsigned char>(c));
    return shown;
}

std::string cellOf(const BusRecord& record, BusColumn column) {
    switch (column) {
        case BusColumn::port:
            return portText({record.port}) + " " + shownKept(record.baudRate);
        case BusColumn::device:
            return shownKept(record.deviceId);
        case BusColumn::askedBy:
            return askerText(record.asker);
        case BusColumn::command:
            if (record.command.bytes().empty() && record.outcome != Outcome::dropped)
                return "(reads on)";
            return shownKept(record.command);
        case BusColumn::reply:
            return shownKept(record.reply);
        case BusColumn::taken:
            return takenText(record.taken);
        case BusColumn::result:
            break;
    }
    return resultText(record.outcome);
}

bool holdsText(const BusRecord& record, std::string_view text) {
    return std::any_of(columns.begin(), columns.end(), [&](const Column& each) {
        return each.column != BusColumn::taken && contains(cellOf(record, each.column), text);
    });
}

std::string busTable(const std::vector<BusRecord>& records, std::string_view lineEnd) {
    std::string table =
        tableLine("Time", [](const Column& column) { return std::string(column.heading); });
    table += lineEnd;
    for (const BusRecord& record : records) {
        table += tableLine(dateAndTime(record.begun),
                           [&](const Column& column) { return cellOf(record, column.column); });
        table += lineEnd;
    }
    return table;
}

}  // namespace zlt
