#include "ui/print_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "ui/form_binder.h"

namespace lupin::ui {

PrintDialog::PrintDialog(const std::vector<std::string>& printers, const std::string& proposed, QWidget* parent)
    : QDialog(parent) {
  setObjectName("dlgPrint");
  setWindowTitle("印刷");
  cboPrinter = new QComboBox(this);
  cboPrinter->setObjectName("cboPrinter");
  cboPrinter->setMinimumWidth(260);
  for (const auto& name : printers) cboPrinter->addItem(Q(name));
  cboPrinter->setCurrentIndex(cboPrinter->findText(Q(proposed)));
  if (cboPrinter->currentIndex() < 0 && cboPrinter->count() > 0) cboPrinter->setCurrentIndex(0);
  cmdOK = new QPushButton("OK", this);
  cmdCancel = new QPushButton("キャンセル", this);
  cmdOK->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  row->addWidget(new QLabel("プリンタ名"));
  row->addWidget(cboPrinter, 1);
  layout->addLayout(row);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  layout->addLayout(buttons);
  connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

std::string PrintDialog::Ask() {
  if (exec() != QDialog::Accepted || cboPrinter->currentIndex() < 0) return {};
  return S(cboPrinter->currentText());
}

}  // namespace lupin::ui
