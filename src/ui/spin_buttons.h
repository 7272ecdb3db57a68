#pragma once
// The vsrl spin controls: an up and a down arrow beside a text box. Up steps +1 (next), down -1.
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>

namespace lupin::ui {

class SpinButtons : public QWidget {
 public:
  SpinButtons(const QString& name, std::function<void(int direction)> on_step, QWidget* parent = nullptr)
      : QWidget(parent), on_step_(std::move(on_step)) {
    setObjectName(name);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    up = Arrow(Qt::UpArrow, +1);
    down = Arrow(Qt::DownArrow, -1);
    layout->addWidget(up);
    layout->addWidget(down);
  }
  QToolButton* up = nullptr;
  QToolButton* down = nullptr;

 private:
  QToolButton* Arrow(Qt::ArrowType type, int direction) {
    auto* button = new QToolButton(this);
    button->setArrowType(type);
    button->setFixedSize(16, 11);
    button->setAutoRepeat(true);
    QObject::connect(button, &QToolButton::clicked, this, [this, direction] { on_step_(direction); });
    return button;
  }
  std::function<void(int)> on_step_;
};

}  // namespace lupin::ui
