#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <functional>

#include "panel/forms/TrendPainter.h"

namespace zlt {

/// The trend as the operator looks at it: goes with the time or stands still, is zoomed about the
/// pointer by the wheel and dragged, and reads out what is under the pointer. With the keys: the
/// arrows move, plus and minus zoom, End goes with the time again.
class TrendPlot : public QWidget {
    Q_OBJECT

 public:
    using Clock = std::function<TrendTime()>;

    explicit TrendPlot(QWidget* parent = nullptr);

    /// Both outlive the plot's use.
    void showRecord(const TrendRecord& record, Clock now);

    [[nodiscard]] const TrendView& view() const { return m_view; }
    void setSpan(TrendView::Span span);
    void setPaused(bool paused);
    /// Off: the scales stay as they are, and are moved by dragging and zoomed by Ctrl and the
    /// wheel.
    void setAutoscale(bool on);

    /// What it shows, without the read-out, in so many of the device's pixels.
    QImage picture();

    [[nodiscard]] QSize sizeHint() const override { return {640, 420}; }
    [[nodiscard]] QSize minimumSizeHint() const override;

 signals:
    /// The operator has changed what is looked at.
    void viewChanged();

 protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    struct Drag {
        QPoint last;
        std::optional<std::size_t> plot;
    };

    [[nodiscard]] TrendView::Bounds bounds() const;
    [[nodiscard]] TrendPainter::Subject subject() const;
    void frame();
    [[nodiscard]] bool frameIsDue() const;
    void change();
    void zoomScale(std::size_t plot, double factor, int y);

    const TrendRecord* m_record = nullptr;
    Clock m_now;
    TrendView m_view;
    TrendMemory m_memory;
    std::array<TrendScale, trendPlots> m_scales;
    bool m_autoscale = true;
    std::optional<Drag> m_drag;
    std::optional<QPoint> m_pointer;
    bool m_changed = true;
    QElapsedTimer m_sinceFrame;
    QTimer m_frames{this};
};

}  // namespace zlt
