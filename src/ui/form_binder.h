#pragma once
// Binds widgets to the control values of a form model. Pull copies what the user changed into
// the model before a handler runs; Push shows the model after it, with the widgets' signals held
// so that showing a value never runs a handler again.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>

#include <string>
#include <vector>

#include "common/combo.h"
#include "common/controls.h"

namespace lupin::ui {

inline QString Q(const std::string& text) { return QString::fromStdString(text); }
inline QString Q(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }
inline std::string S(const QString& text) { return text.toStdString(); }

class FormBinder {
 public:
  void Bind(QLineEdit* widget, common::TextBox* box) { texts_.push_back({widget, box}); }
  void Bind(QCheckBox* widget, common::CheckBox* box) { checks_.push_back({widget, box}); }
  void Bind(QComboBox* widget, common::ComboModel* combo) { combos_.push_back({widget, combo}); }
  void Bind(QLabel* widget, common::Label* label) { labels_.push_back({widget, label}); }
  void Bind(QGroupBox* widget, common::Frame* frame) { frames_.push_back({widget, frame}); }
  void Bind(QPushButton* widget, common::Button* button) { buttons_.push_back({widget, button}); }

  void Pull();
  void Push();

 private:
  template <typename W, typename M>
  struct Pair {
    W* widget;
    M* model;
  };
  std::vector<Pair<QLineEdit, common::TextBox>> texts_;
  std::vector<Pair<QCheckBox, common::CheckBox>> checks_;
  std::vector<Pair<QComboBox, common::ComboModel>> combos_;
  std::vector<Pair<QLabel, common::Label>> labels_;
  std::vector<Pair<QGroupBox, common::Frame>> frames_;
  std::vector<Pair<QPushButton, common::Button>> buttons_;
};

}  // namespace lupin::ui
