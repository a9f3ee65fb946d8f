// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/focus_style.h"

#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QEvent>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace kavo {

namespace {

constexpr int kRing = 2;  // pixels around a box that has the focus

/// The colour of a mark's lines: the text's, paler for a button that cannot be pressed.
QColor markColour(const QStyleOption& option)
{
    constexpr double kPale = 0.5;
    QColor colour = option.palette.color(QPalette::WindowText);
    if (!option.state.testFlag(QStyle::State_Enabled)) colour.setAlphaF(kPale);
    return colour;
}

QColor markGround(const QStyleOption& option)
{
    const bool isPressed = option.state.testFlag(QStyle::State_Sunken);
    return option.palette.color(isPressed ? QPalette::Mid : QPalette::Window);
}

/// A circle, with a dot in it when the option is chosen.
void drawOptionMark(QPainter& painter, const QStyleOption& option)
{
    const QRectF circle = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(markColour(option), 1));
    painter.setBrush(markGround(option));
    painter.drawEllipse(circle);
    if (!option.state.testFlag(QStyle::State_On)) return;
    const double rest = circle.width() / 4;
    painter.setPen(Qt::NoPen);
    painter.setBrush(markColour(option));
    painter.drawEllipse(circle.adjusted(rest, rest, -rest, -rest));
}

/// A square, with a tick in it when the box is checked.
void drawCheckMark(QPainter& painter, const QStyleOption& option)
{
    const QRectF square = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(markColour(option), 1));
    painter.setBrush(markGround(option));
    painter.drawRect(square);
    if (!option.state.testFlag(QStyle::State_On)) return;
    const auto at = [&square](double x, double y) {
        return QPointF(square.left() + x * square.width(), square.top() + y * square.height());
    };
    painter.setPen(QPen(markColour(option), square.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)}));
}

/// Around the text of a button that has the focus.
void drawFocusMark(QPainter& painter, const QStyleOption& option)
{
    painter.setPen(QPen(markColour(option), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
}

/// Inside of a button. Its outline alone is that of the default button, too, which Enter presses from everywhere.
void drawFocusOfButton(QPainter& painter, const QStyleOption& option, const QRect& place)
{
    painter.save();
    painter.setPen(QPen(option.palette.color(QPalette::ButtonText), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    constexpr double kInside = 1.5;  // of the outline
    painter.drawRect(QRectF(place).adjusted(kInside, kInside, -kInside, -kInside));
    painter.restore();
}

/// What draws a mark, where that is not left to the desktop's style.
auto markDrawer(QStyle::PrimitiveElement element, const QWidget* widget) -> void (*)(QPainter&, const QStyleOption&)
{
    const bool isMarked =
        qobject_cast<const QRadioButton*>(widget) != nullptr || qobject_cast<const QCheckBox*>(widget) != nullptr;
    if (!isMarked) return nullptr;
    if (element == QStyle::PE_IndicatorRadioButton) return drawOptionMark;
    if (element == QStyle::PE_IndicatorCheckBox) return drawCheckMark;
    if (element == QStyle::PE_FrameFocusRect) return drawFocusMark;
    return nullptr;
}

/// The styles draw the edge of a dark box darker still, which is nothing to be seen on a dark window.
void drawEdgeOfDarkBox(QPainter& painter, const QStyleOption& option)
{
    constexpr int kDark = 128;
    constexpr double kEdge = 0.5;  // of the text's colour
    constexpr double kRounding = 2;
    if (option.palette.color(QPalette::Base).lightness() >= kDark || option.state.testFlag(QStyle::State_HasFocus))
        return;
    QColor colour = option.palette.color(QPalette::Text);
    colour.setAlphaF(kEdge);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), kRounding, kRounding);
    painter.restore();
}

/// A text as far as there is room for it; dots stand for the rest.
QString fitting(const QStyleOption& option, const QString& text, int room)
{
    return option.fontMetrics.elidedText(text, Qt::ElideRight, room, Qt::TextShowMnemonic);
}

/// Whether a number or a text can be typed into the control.
bool isTypedInto(const QStyleOptionComplex& option)
{
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option);
    return combo != nullptr ? combo->editable : qstyleoption_cast<const QStyleOptionSpinBox*>(&option) != nullptr;
}

/// Moves what is drawn to the next whole pixel of the screen. At 150 % a widget may begin in the midst of one, and a
/// line along its left or upper edge would be drawn just outside of it.
class OnWholePixels final
{
public:
    OnWholePixels(QPainter& painter, const QPoint& corner) : m_painter(painter)
    {
        m_painter.save();
        const QTransform& onScreen = m_painter.deviceTransform();
        const QPointF at = onScreen.map(QPointF(corner));
        m_painter.translate(upToWhole(at.x()) / onScreen.m11(), upToWhole(at.y()) / onScreen.m22());
    }
    ~OnWholePixels() { m_painter.restore(); }
    OnWholePixels(const OnWholePixels&) = delete;
    OnWholePixels& operator=(const OnWholePixels&) = delete;

private:
    static double upToWhole(double position)
    {
        constexpr double kWhole = 1.0 / 64;  // that far from a whole number it is one
        return std::ceil(position - kWhole) - position;
    }

    QPainter& m_painter;
};

bool isBox(const QObject* object)
{
    const auto* area = qobject_cast<const QAbstractScrollArea*>(object);
    return area != nullptr && area->frameShape() == QFrame::StyledPanel;
}

}  // namespace

void FocusStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (isBox(widget)) widget->installEventFilter(this);
}

void FocusStyle::unpolish(QWidget* widget)
{
    widget->removeEventFilter(this);
    QProxyStyle::unpolish(widget);
}

/// Only the inside of a box is painted anew by itself when the focus comes or goes.
bool FocusStyle::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) static_cast<QWidget*>(watched)->update();
    return false;
}

int FocusStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    return metric == PM_DefaultFrameWidth && isBox(widget) ? std::max(pixels, kRing) : pixels;
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    const auto* label = element == CE_RadioButtonLabel ? qstyleoption_cast<const QStyleOptionButton*>(option) : nullptr;
    if (label != nullptr && widget != nullptr && widget->width() < widget->sizeHint().width()) {
        QStyleOptionButton cut(*label);
        cut.text = fitting(cut, cut.text, cut.rect.width());
        QProxyStyle::drawControl(element, &cut, painter, widget);
        return;
    }
    if (element != CE_ShapedFrame) {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (element == CE_PushButton && option->state.testFlag(State_HasFocus))
            drawFocusOfButton(*painter, *option, subElementRect(SE_PushButtonFocusRect, option, widget));
        return;
    }
    const OnWholePixels whole(*painter, option->rect.topLeft());
    // The styles' line is thinner than the ring: what is left of it belongs to the box, not to the window.
    if (isBox(widget)) painter->fillRect(option->rect, option->palette.base());
    QProxyStyle::drawControl(element, option, painter, widget);
    if (!isBox(widget)) return;
    drawEdgeOfDarkBox(*painter, *option);
    if (!option->state.testFlag(State_HasFocus)) return;
    painter->setPen(
        QPen(option->palette.color(QPalette::Highlight), kRing, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    constexpr qreal kMiddle = kRing / 2.0;
    painter->drawRect(QRectF(option->rect).adjusted(kMiddle, kMiddle, -kMiddle, -kMiddle));
}

void FocusStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const
{
    const auto* frame = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (frame != nullptr && frame->fontMetrics.size(Qt::TextShowMnemonic, frame->text).width() > frame->rect.width()) {
        QStyleOptionGroupBox cut(*frame);
        cut.text = fitting(cut, cut.text, cut.rect.width());
        QProxyStyle::drawComplexControl(control, &cut, painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (isTypedInto(*option)) drawEdgeOfDarkBox(*painter, *option);
}

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    const auto draw = markDrawer(element, widget);
    if (element == PE_FrameGroupBox) {
        const OnWholePixels whole(*painter, option->rect.topLeft());
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    if (draw == nullptr) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_FrameLineEdit) drawEdgeOfDarkBox(*painter, *option);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    draw(*painter, *option);
    painter->restore();
}

}  // namespace kavo
