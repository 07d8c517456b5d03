#pragma once

#include "link/Services.h"
#include "parameters/ParameterView.h"

namespace zlt {

/// Keeps what the screen shows in a file and brings it back. Sends nothing.
class ParameterFiles {
 public:
    ParameterFiles(const Services& services, ParameterView& view)
        : m_services(services), m_view(view) {}

    /// Throws NotLatin1 and ControlCharacter, nothing written, for a text that no file can hold.
    void save();
    /// Shows a file's values; the screen stays as it was when the file is not a whole one.
    void open();

 private:
    const Services& m_services;
    ParameterView& m_view;
};

}  // namespace zlt
