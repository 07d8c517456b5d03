#pragma once

#include <string_view>

#include "platform/ShownState.h"
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

    /// Shows what the axis or a program is doing, in colour as well where it is not at rest.
    void showState(const ShownState& state);

    /// Dims the value while the controller does not answer: it is no live one then.
    void setLive(bool live);

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void colour();

    bool m_live = true;
    bool m_colouring = false;
    Meaning m_meaning = Meaning::atRest;
};

/// How much is left of what is painted and is no live value.
inline constexpr double dimmedOpacity = 0.4;

}  // namespace zlt
