#pragma once

#include "ctl/Arguments.h"
#include "ctl/Session.h"
#include "link/serial/PortDirectory.h"
#include "platform/Files.h"

namespace zlt::ctl {

/// Whom a command is for: by the options, else as the panel's settings file has it. Throws Failure
/// for an address or a rate that is none.
Target targetOf(const Arguments& arguments, Files& files, PortDirectory& directory);

/// A whole number out of a text, at least `least`. Throws Failure, which names it by `what`.
int wholeNumber(std::string_view what, const std::string& text, int least);

}  // namespace zlt::ctl
