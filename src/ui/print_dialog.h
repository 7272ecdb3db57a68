#pragma once
// The print dialog of the preview: the printer to send the pages to.
#include <QComboBox>
#include <QDialog>
#include <QPushButton>

#include <string>
#include <vector>

namespace lupin::ui {

class PrintDialog : public QDialog {
 public:
  PrintDialog(const std::vector<std::string>& printers, const std::string& proposed, QWidget* parent);
  // The chosen queue, "" when cancelled.
  std::string Ask();

  QComboBox* cboPrinter;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

}  // namespace lupin::ui
