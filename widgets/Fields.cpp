#include "widgets/Fields.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>

#include "link/Values.h"
#include "widgets/ReadOut.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

void showIn(QComboBox& box, std::string_view text) {
    const QString shown = shownText(text);
    const QSignalBlocker silent(&box);
    // The list's mark follows the text; otherwise leaving the field would count as a choice.
    box.setCurrentIndex(box.findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive));
    if (box.currentText() != shown)
        box.setEditText(shown);
}

void makeEditable(QComboBox& box) {
    box.setEditable(true);
    box.setInsertPolicy(QComboBox::NoInsert);
    box.setCompleter(nullptr);  // "15" must not become "1500"
}

}  // namespace

QSize NumberField::sizeHint() const {
    return {sizeFor(longestNumber(), fontMetrics()).width(), QLineEdit::sizeHint().height()};
}

QSize NumberField::sizeFor(const QString& text, const QFontMetrics& metrics) const {
    QStyleOptionFrame frame;
    initStyleOption(&frame);
    // QLineEdit keeps two pixels free on either side of the text, and one for the cursor; one above
    // and below.
    constexpr QSize aroundText(6, 2);
    const QSize contents = QSize(metrics.horizontalAdvance(text), metrics.height()) + aroundText;
    return style()->sizeFromContents(QStyle::CT_LineEdit, &frame, contents, this);
}

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent) {
    makeEditable(*this);
    lineEdit()->setReadOnly(true);
    lineEdit()->setCursor(Qt::ArrowCursor);
    lineEdit()->installEventFilter(this);
}

void ChoiceBox::showText(std::string_view text) {
    showIn(*this, text);
}

bool ChoiceBox::eventFilter(QObject* watched, QEvent* event) {
    // Nothing can be typed here, so a click anywhere opens the list; with the release, since
    // the list would take the release after its opening as a choice.
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease && isEnabled() &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        showPopup();
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            showPopup();
            return;
        default:
            QComboBox::keyPressEvent(event);
    }
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

EditableChoiceBox::EditableChoiceBox(QWidget* parent) : QComboBox(parent) {
    makeEditable(*this);
}

void EditableChoiceBox::showText(std::string_view text) {
    showIn(*this, text);
}

void addBaudRates(QComboBox& box) {
    const QSignalBlocker silent(&box);
    for (const std::string_view rate : baudRates)
        box.addItem(shownText(rate));
}

void addDeviceIds(QComboBox& box) {
    const QSignalBlocker silent(&box);
    for (int id = 1; id <= 99; ++id)
        box.addItem(QStringLiteral("%1").arg(id, 2, 10, QLatin1Char('0')));
}

void PolledCheckBox::showState(bool checked) {
    if (!m_pressed && !isDown())
        setChecked(checked);
}

void PolledCheckBox::setLive(bool live) {
    if (m_live == live)
        return;
    m_live = live;
    update();
}

void PolledCheckBox::mousePressEvent(QMouseEvent* event) {
    m_pressed = true;
    QCheckBox::mousePressEvent(event);
}

void PolledCheckBox::mouseReleaseEvent(QMouseEvent* event) {
    QCheckBox::mouseReleaseEvent(event);
    m_pressed = false;
}

void PolledCheckBox::paintEvent(QPaintEvent* event) {
    if (m_live) {
        QCheckBox::paintEvent(event);
        return;
    }
    // By way of a picture: a style may set an opacity of its own, or paint past ours.
    QPixmap picture(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QStyleOptionButton option;
    initStyleOption(&option);
    QPainter onPicture(&picture);
    style()->drawControl(QStyle::CE_CheckBox, &option, &onPicture, this);
    onPicture.end();
    QPainter painter(this);
    painter.setOpacity(dimmedOpacity);
    painter.drawPixmap(0, 0, picture);
}

}  // namespace zlt
