#pragma once

#include <string_view>

#include "widgets/NumberField.h"

namespace zlt {

/// A value that the controller reports: to be read, selected and copied, not typed into.
class ReadOut : public NumberField {
    Q_OBJECT

 public:
    explicit ReadOut(QWidget* parent = nullptr);

    /// Shows a reply as it stands (Latin-1). Writes only when it differs, so that a selection
    /// stays and an unchanged value costs nothing.
    void showReply(std::string_view reply);

    /// Dims the value while the controller does not answer: it is no live one then.
    void setLive(bool live);

 private:
    bool m_live = true;
};

}  // namespace zlt
