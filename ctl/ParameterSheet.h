#pragma once

#include <string>
#include <vector>

#include "parameters/ParameterEncoding.h"
#include "parameters/ParameterView.h"

namespace zlt::ctl {

/// The set in memory, where the panel has a screen for it.
class ParameterSheet final : public ParameterView {
 public:
    ParameterSheet();

    [[nodiscard]] ParameterValues values() const override { return set; }
    void showField(ParameterField field, const std::string& text) override {
        set[field] = text;
        shown.push_back({field, text});
    }
    void disable(ParameterField) override {}
    void showActivity(Activity) override {}
    void showDeviceCopy(const DeviceCopy&) override {}
    void showOutcome(std::string_view line) override { outcome = line; }
    void showOpened(const ParameterValues&) override { opened = true; }

    ParameterValues set;
    std::vector<FieldText> shown;  ///< all that has been, in order
    std::string outcome;           ///< of the last transfer, UTF-8
    bool opened = false;           ///< a file's values stand in the set
};

}  // namespace zlt::ctl
