#pragma once

#include <string_view>

namespace zlt {

/// The one way to put a message in front of the operator. Texts are UTF-8; line ends in
/// them (CR, LF or CR LF) are the caller's and become line breaks only when shown.
class Gate {
 public:
    virtual ~Gate() = default;

    /// Shows `text` under the application's title with one OK button and returns when the
    /// operator has closed it. Events are pumped meanwhile.
    virtual void message(std::string_view text) = 0;
};

}  // namespace zlt
