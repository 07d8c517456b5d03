#pragma once

#include <QWidget>

#include "parameters/Comparison.h"

namespace zlt {

/// Says beside a field how it stands to the controller: a full dot where the two differ, a ring
/// where the controller's word is not known, a cross where it refused what was sent, otherwise
/// nothing. Its place stays free, so that a mark that comes moves nothing.
class ChangeMark : public QWidget {
    Q_OBJECT

 public:
    explicit ChangeMark(QWidget* parent = nullptr);

    [[nodiscard]] Standing standing() const { return m_standing; }
    /// `reason` is the tooltip.
    void showStanding(Standing standing, const QString& reason);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    Standing m_standing = Standing::same;
};

}  // namespace zlt
