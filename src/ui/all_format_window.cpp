#include "ui/all_format_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "ui/desktop_session.h"
#include "ui/form_binder.h"

namespace lupin::ui {

AllFormatWindow::AllFormatWindow(DesktopSession& session, catalogue::AllFormatForm& model, QWidget* parent)
    : QDialog(parent), session_(session), model_(model) {
  setObjectName("frmAllFormat");
  setWindowTitle(Q(catalogue::kAllFormatCaption));
  resize(520, 560);
  sprList = new QTableView(this);
  sprList->setObjectName("sprList");
  grid_model_ = new GridTableModel(model_.sprList, sprList);
  sprList->setModel(grid_model_);
  sprList->setSelectionBehavior(QAbstractItemView::SelectRows);
  sprList->setSelectionMode(QAbstractItemView::SingleSelection);
  sprList->verticalHeader()->setDefaultSectionSize(22);
  sprList->horizontalHeader()->setStretchLastSection(true);
  auto button = [this](const char* name, const common::Button& model_button) {
    auto* b = new QPushButton(Q(model_button.caption), this);
    b->setObjectName(name);
    return b;
  };
  cmdUpperButton = button("cmdUpper", model_.cmdUpperButton);
  cmdLowerButton = button("cmdLower", model_.cmdLowerButton);
  cmdSettingButton = button("cmdSetting", model_.cmdSettingButton);
  cmdCloseButton = button("cmdClose", model_.cmdCloseButton);
  auto* side = new QVBoxLayout;
  side->addWidget(cmdUpperButton);
  side->addWidget(cmdLowerButton);
  side->addStretch(1);
  side->addWidget(cmdSettingButton);
  side->addWidget(cmdCloseButton);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(sprList, 1);
  layout->addLayout(side);

  connect(cmdUpperButton, &QPushButton::clicked, this, [this] { cmdUpper(); });
  connect(cmdLowerButton, &QPushButton::clicked, this, [this] { cmdLower(); });
  connect(cmdSettingButton, &QPushButton::clicked, this, [this] { cmdSetting(); });
  connect(cmdCloseButton, &QPushButton::clicked, this, [this] { cmdClose(); });
  connect(sprList->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& current, const QModelIndex&) { model_.sprList.SetRow(current.row() + 1); });
  model_.Form_Load();
  Refresh();
}

void AllFormatWindow::Refresh() {
  grid_model_->Reload();
  ApplyHiddenColumns(*sprList, model_.sprList);
  sprList->setColumnWidth(0, 48);
  SelectRow(model_.sprList.Row());
}

void AllFormatWindow::SelectRow(int row) {
  model_.sprList.SetRow(row);
  if (row >= 1) sprList->selectRow(row - 1);
}

void AllFormatWindow::cmdUpper() {
  model_.cmdUpper();
  Refresh();
}

void AllFormatWindow::cmdLower() {
  model_.cmdLower();
  Refresh();
}

void AllFormatWindow::cmdSetting() {
  if (model_.cmdSetting() != 0) session_.ShowModal("frmSetting");
}

void AllFormatWindow::cmdClose() {
  if (model_.cmdClose()) QDialog::reject();
}

}  // namespace lupin::ui
