#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zlt {

/// Text of the wire or of a file, one byte a character, as a widget shows it.
QString shownText(std::string_view wire);

/// A field's text as it goes into a line of a file. Throws NotLatin1 naming the first
/// character that cannot, and refuses line ends, which a pasted text may bring along unseen.
std::string wireText(const QString& shown);

/// The same for a text that goes into a command: no control character at all, since a carriage
/// return ends the command and begins another.
std::string commandText(const QString& shown);

/// The same for a text of several lines, ended by CR LF; the line is named too.
std::string wireLines(const QString& shown);

/// UTF-8 text, as messages and the system's own words are, for a widget.
QString fromUtf8(std::string_view text);

}  // namespace zlt
