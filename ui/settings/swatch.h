#pragma once

#include <QLabel>

namespace kavo {

/// A label that shows one colour (the Window colour of its palette) and can be clicked, with the mouse or
/// with Space and Enter.
class Swatch final : public QLabel
{
    Q_OBJECT

public:
    explicit Swatch(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void clicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace kavo
