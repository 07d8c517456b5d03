#pragma once

#include <functional>

#include "ctl/Context.h"
#include "ctl/ParameterSheet.h"
#include "parameters/ParameterFile.h"
#include "parameters/ParameterTransfer.h"

namespace zlt::ctl {

/// The setup screen's work without the screen. It reads the set as it opens its port; throws
/// Failure when a value could not be read.
class Setup {
 public:
    explicit Setup(Context& context);

    /// Takes a file's values into the sheet; what no file holds stays the controller's.
    void take(const ParameterSheet& file);
    /// Throws Failure when the file does not hold them then.
    void save(const std::string& file);
    [[nodiscard]] std::string inController(ParameterField field) const {
        return transfer.deviceCopy().word(field).value_or("");
    }

    ParameterSheet sheet;
    ParameterTransfer transfer;

 private:
    Context& m_context;
};

/// Runs `action` as the panel runs its setup screen: with the port lent to it.
void withSetup(Context& context, const std::function<void(Setup&)>& action);

/// The values of a parameter file. Throws Failure for one that is none; nothing is sent.
ParameterSheet openSheet(Context& context, const std::string& file);

/// Throws Failure for a file that is there already, unless the operator has said that it may be
/// written over.
void checkOverwriting(const Context& context, const std::string& file);

}  // namespace zlt::ctl
