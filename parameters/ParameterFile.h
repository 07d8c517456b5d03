#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "link/Services.h"
#include "parameters/Comparison.h"
#include "parameters/ParameterEncoding.h"
#include "parameters/ParameterView.h"

namespace zlt {

/// A parameter file that is short or holds something else than its layout. what() names the
/// line and what was expected there, UTF-8.
class MalformedParameterFile : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// The twelve lines of a parameter file, each ended by CR LF.
std::string parameterFileText(const ParameterValues& values);

/// What a parameter file says, by line position. Lines after the twelfth are ignored, a byte order
/// mark too, and the last two may be missing. Throws MalformedParameterFile.
std::vector<FieldText> readParameterFile(std::string_view bytes);

/// Keeps what the screen shows in a file and brings it back. Sends nothing.
class ParameterFiles {
 public:
    ParameterFiles(const Services& services, ParameterView& view)
        : m_services(services), m_view(view) {}

    /// Asks first where the file would hold one of `unread`. Throws what ParameterView::values()
    /// throws, before anything is asked or written.
    void save(const std::vector<ParameterField>& unread);
    /// Shows a file's values; the screen stays as it was when the file is not a whole one.
    void open();

 private:
    const Services& m_services;
    ParameterView& m_view;
};

}  // namespace zlt
