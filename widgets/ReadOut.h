#pragma once

#include <QColor>
#include <optional>
#include <string_view>

#include "widgets/NumberField.h"

namespace zlt {

/// A value that the controller reports: to be read, selected and copied, not typed into, and so on
/// the ground of its screen and not on that of an entry field.
class ReadOut : public NumberField {
    Q_OBJECT

 public:
    explicit ReadOut(QWidget* parent = nullptr);

    /// Shows a reply as it stands (Latin-1). Writes only when it differs, so that a selection
    /// stays and an unchanged value costs nothing.
    void showReply(std::string_view reply);

    /// Shows what the axis or a program is doing, in colour as well where something is under way
    /// or at fault.
    void showState(std::string_view state);

    /// Dims the value while the controller does not answer: it is no live one then.
    void setLive(bool live);

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void colour();

    bool m_live = true;
    bool m_colouring = false;
    /// What is behind the text: the screen's own ground where there is none.
    std::optional<QColor> m_ground;
};

}  // namespace zlt
