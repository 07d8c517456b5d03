#include "panel/forms/TrendPlot.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

namespace zlt {
namespace {

using namespace std::chrono_literals;

/// No more frames than that, thirty a second; and no more than the poll can spare the time for:
/// each one is followed by many times its own length without any.
constexpr std::chrono::milliseconds betweenFrames = 34ms;
constexpr int spared = 50;
/// So often at the least, though nothing has moved by a whole pixel.
constexpr std::chrono::milliseconds latestFrame = 500ms;

constexpr double zoomANotch = 0.8;
constexpr double moveAKey = 0.1;

}  // namespace

TrendPlot::TrendPlot(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_frames.setSingleShot(true);
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &TrendPlot::frame);
}

QSize TrendPlot::minimumSizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 60, metrics.height() * 22};
}

void TrendPlot::showRecord(const TrendRecord& record, Clock now) {
    m_record = &record;
    m_now = std::move(now);
    m_changed = true;
}

TrendView::Bounds TrendPlot::bounds() const {
    const TrendTime now = m_now();
    return {m_record->empty() ? now : m_record->at(0).time, now};
}

TrendPainter::Subject TrendPlot::subject() const {
    return {*m_record, m_view.right(m_now()), m_view.span(), m_autoscale};
}

// Frames

void TrendPlot::frame() {
    std::chrono::nanoseconds taken{0};
    if (frameIsDue()) {
        QElapsedTimer frame;
        frame.start();
        m_changed = false;
        m_sinceFrame.start();
        repaint();  // the way to the display included
        taken = std::chrono::nanoseconds(frame.nsecsElapsed());
    }
    m_frames.start(std::max(betweenFrames,
                            std::chrono::duration_cast<std::chrono::milliseconds>(taken * spared)));
}

bool TrendPlot::frameIsDue() const {
    if (m_changed || !m_sinceFrame.isValid())
        return true;
    if (!m_view.following())
        return false;
    const TrendView::Span pixel = m_view.span() / std::max(width(), 1);
    return std::chrono::milliseconds(m_sinceFrame.elapsed()) >=
           std::clamp<TrendView::Span>(pixel, 0ms, latestFrame);
}

void TrendPlot::change() {
    m_changed = true;
    emit viewChanged();
}

void TrendPlot::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_changed = true;
    m_frames.start(betweenFrames);
}

void TrendPlot::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_frames.stop();
    m_drag.reset();
    m_pointer.reset();
}

void TrendPlot::paintEvent(QPaintEvent*) {
    if (!m_record)
        return;
    QPainter painter(this);
    auto shown = subject();
    if (!m_drag)
        shown.pointer = m_pointer;
    TrendPainter(painter, size(), devicePixelRatioF(), palette(), m_memory).paint(shown, m_scales);
}

QImage TrendPlot::picture() {
    QImage image(size() * devicePixelRatioF(), QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&image);
    painter.setFont(font());
    TrendPainter(painter, size(), devicePixelRatioF(), palette(), m_memory)
        .paint(subject(), m_scales);
    return image;
}

// What the operator does

void TrendPlot::setSpan(TrendView::Span span) {
    m_view.setSpan(span, bounds());
    change();
}

void TrendPlot::setPaused(bool paused) {
    if (paused)
        m_view.pause(m_now());
    else
        m_view.resume();
    change();
}

void TrendPlot::setAutoscale(bool on) {
    m_autoscale = on;
    change();
}

void TrendPlot::wheelEvent(QWheelEvent* event) {
    event->accept();
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0)
        return;
    const double factor = std::pow(zoomANotch, notches);
    const QPoint place = event->position().toPoint();
    const TrendLayout layout(size(), fontMetrics());
    if ((event->modifiers() & Qt::ControlModifier) == 0)
        m_view.zoom(factor, std::clamp(layout.acrossAt(place.x()), 0.0, 1.0), bounds());
    else if (const auto plot = layout.plotAt(place); plot && !m_autoscale)
        zoomScale(*plot, factor, place.y());
    change();
}

void TrendPlot::zoomScale(std::size_t plot, double factor, int y) {
    const QRect place = TrendLayout(size(), fontMetrics()).plots[plot];
    TrendScale& scale = m_scales[plot];
    const double share = static_cast<double>(place.bottom() - y) / place.height();
    const double fixed = scale.low + scale.range() * share;
    // Between one pulse and all that 32 bits count.
    const double range = std::clamp(scale.range() * factor, 2.0, 1e10);
    scale = {fixed - range * share, fixed + range * (1 - share)};
}

void TrendPlot::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_drag = Drag{event->pos(), TrendLayout(size(), fontMetrics()).plotAt(event->pos())};
}

void TrendPlot::mouseMoveEvent(QMouseEvent* event) {
    m_pointer = event->pos();
    m_changed = true;
    if (!m_drag)
        return;
    const QPoint by = event->pos() - m_drag->last;
    m_drag->last = event->pos();
    const TrendLayout layout(size(), fontMetrics());
    m_view.moveBack(m_view.span() * by.x() / std::max(layout.band.width(), 1), bounds());
    if (m_drag->plot && !m_autoscale) {
        TrendScale& scale = m_scales[*m_drag->plot];
        const double up = scale.range() * by.y() / layout.plots[*m_drag->plot].height();
        scale = {scale.low + up, scale.high + up};
    }
    change();
}

void TrendPlot::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_drag.reset();
    m_changed = true;
}

void TrendPlot::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_pointer.reset();
    m_changed = true;
}

void TrendPlot::keyPressEvent(QKeyEvent* event) {
    const auto step = TrendView::Span(
        static_cast<TrendView::Span::rep>(static_cast<double>(m_view.span().count()) * moveAKey));
    switch (event->key()) {
        case Qt::Key_Left:
            m_view.moveBack(step, bounds());
            break;
        case Qt::Key_Right:
            m_view.moveBack(-step, bounds());
            break;
        case Qt::Key_Plus:
            m_view.zoom(zoomANotch, 0.5, bounds());
            break;
        case Qt::Key_Minus:
            m_view.zoom(1 / zoomANotch, 0.5, bounds());
            break;
        case Qt::Key_End:
            m_view.resume();
            break;
        default:
            QWidget::keyPressEvent(event);
            return;
    }
    change();
}

}  // namespace zlt
