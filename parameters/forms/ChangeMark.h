#pragma once

#include <QWidget>

namespace zlt {

/// Says beside a field how it stands to the controller's word: a full dot where the two
/// differ, a ring where the controller has said nothing yet, otherwise nothing. Its place
/// stays free, so that a mark that comes moves nothing.
class ChangeMark : public QWidget {
    Q_OBJECT

 public:
    enum class State { same, differs, unread };

    explicit ChangeMark(QWidget* parent = nullptr);

    State state() const { return m_state; }
    /// `reason` is the tooltip.
    void showState(State state, const QString& reason);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    State m_state = State::same;
};

}  // namespace zlt
