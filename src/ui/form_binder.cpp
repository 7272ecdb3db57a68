#include "ui/form_binder.h"

#include <QSignalBlocker>

namespace lupin::ui {

void FormBinder::Pull() {
  for (auto& [widget, box] : texts_) box->text = S(widget->text());
  for (auto& [widget, box] : checks_) box->value = widget->isChecked() ? 1 : 0;
  for (auto& [widget, combo] : combos_) combo->list_index = widget->currentIndex();
}

void FormBinder::Push() {
  for (auto& [widget, box] : texts_) {
    const QSignalBlocker hold(widget);
    if (widget->text() != Q(box->text)) widget->setText(Q(box->text));
    widget->setEnabled(box->enabled);
    widget->setVisible(box->visible);
  }
  for (auto& [widget, box] : checks_) {
    const QSignalBlocker hold(widget);
    widget->setChecked(box->Checked());
    widget->setText(Q(box->caption));
    widget->setEnabled(box->enabled);
    widget->setVisible(box->visible);
  }
  for (auto& [widget, combo] : combos_) {
    const QSignalBlocker hold(widget);
    bool same = widget->count() == combo->ListCount();
    for (int i = 0; same && i < combo->ListCount(); ++i) same = widget->itemText(i) == Q(combo->items[i]);
    if (!same) {
      widget->clear();
      for (const auto& item : combo->items) widget->addItem(Q(item));
    }
    widget->setCurrentIndex(combo->list_index);
    widget->setEnabled(combo->enabled);
    widget->setVisible(combo->visible);
  }
  for (auto& [widget, label] : labels_) {
    widget->setText(Q(label->caption));
    widget->setVisible(label->visible);
  }
  for (auto& [widget, frame] : frames_) {
    widget->setVisible(frame->visible);
    widget->setEnabled(frame->enabled);
    if (frame->in_front) widget->raise();
  }
  for (auto& [widget, button] : buttons_) {
    widget->setText(Q(button->caption));
    widget->setVisible(button->visible);
    widget->setEnabled(button->enabled);
  }
}

}  // namespace lupin::ui
