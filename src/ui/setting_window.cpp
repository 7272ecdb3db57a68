#include "ui/setting_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "catalogue/calibration.h"
#include "engine/printer.h"
#include "ui/desktop_session.h"
#include "ui/spin_buttons.h"

namespace lupin::ui {

SettingWindow::SettingWindow(DesktopSession& session, catalogue::SettingForm& model, QWidget* parent)
    : QDialog(parent), session_(session), model_(model) {
  setObjectName("frmSetting");
  setWindowTitle(Q(catalogue::kSettingCaption));
  auto named = [](auto* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
  };
  cboList = named(new QComboBox, "cboList");
  cboDeviceName = named(new QComboBox, "cboDeviceName");
  cboPaperSize = named(new QComboBox, "cboPaperSize");
  cboPaperBin = named(new QComboBox, "cboPaperBin");
  for (QComboBox* c : {cboList, cboDeviceName, cboPaperSize, cboPaperBin}) c->setMinimumWidth(300);
  optPaperType[0] = named(new QRadioButton("汎用紙"), "optPaperType[0]");
  optPaperType[1] = named(new QRadioButton("専用紙"), "optPaperType[1]");
  txtLeftMargin = named(new QLineEdit, "txtLeftMargin");
  txtTopMargin = named(new QLineEdit, "txtTopMargin");
  lblLeftMargin = named(new QLabel, "lblLeftMargin");
  lblTopMargin = named(new QLabel, "lblTopMargin");
  for (QLineEdit* box : {txtLeftMargin, txtTopMargin}) box->setFixedWidth(60);
  txtOffsetX = named(new QLineEdit, "txtOffsetX");
  txtOffsetY = named(new QLineEdit, "txtOffsetY");
  for (QLineEdit* box : {txtOffsetX, txtOffsetY}) box->setFixedWidth(60);

  auto* grid = new QGridLayout;
  int row = 0;
  grid->addWidget(new QLabel("帳票"), row, 0);
  grid->addWidget(cboList, row++, 1);
  grid->addWidget(new QLabel("プリンタ名"), row, 0);
  grid->addWidget(cboDeviceName, row++, 1);
  grid->addWidget(new QLabel("用紙サイズ"), row, 0);
  grid->addWidget(cboPaperSize, row++, 1);
  grid->addWidget(new QLabel("給紙方法"), row, 0);
  grid->addWidget(cboPaperBin, row++, 1);
  grid->addWidget(new QLabel("用紙"), row, 0);
  auto* paper = new QHBoxLayout;
  paper->addWidget(optPaperType[0]);
  paper->addWidget(optPaperType[1]);
  paper->addStretch(1);
  grid->addLayout(paper, row++, 1);
  auto margin = [&](const char* caption, QLineEdit* box, QLabel* label, int which) {
    grid->addWidget(new QLabel(caption), row, 0);
    auto* line = new QHBoxLayout;
    line->addWidget(box);
    line->addWidget(new SpinButtons(which == 0 ? "vsrlLeft" : "vsrlTop",
                                    [this, which](int d) { Handle([&] { model_.vsrlMargin_Change(which, d); }); }));
    line->addWidget(label);
    line->addStretch(1);
    grid->addLayout(line, row++, 1);
  };
  margin("左余白", txtLeftMargin, lblLeftMargin, 0);
  margin("上余白", txtTopMargin, lblTopMargin, 1);
  for (int k = 0; k < 5; ++k) {
    lblFld_lbl[k] = named(new QLabel, QString("lblFld_lbl%1").arg(k + 1));
    txtFld_txt[k] = named(new QLineEdit, QString("txtFld_txt[%1]").arg(k));
    grid->addWidget(lblFld_lbl[k], row, 0);
    grid->addWidget(txtFld_txt[k], row++, 1);
  }

  auto* calibration = new QGroupBox("位置補正 (このプリンタとこの帳票, 0.1mm 単位, 右・下が正)");
  calibration->setObjectName("fraCalibration");
  auto* cal = new QHBoxLayout(calibration);
  cal->addWidget(new QLabel("横"));
  cal->addWidget(txtOffsetX);
  cal->addWidget(new QLabel("縦"));
  cal->addWidget(txtOffsetY);
  cmdSheet = named(new QPushButton("位置合わせシート印刷"), "cmdSheet");
  cal->addStretch(1);
  cal->addWidget(cmdSheet);

  cmdSetButton = named(new QPushButton, "cmdSet");
  cmdCancel = named(new QPushButton("キャンセル"), "cmdCancel");
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdSetButton);
  buttons->addWidget(cmdCancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid);
  layout->addWidget(calibration);
  layout->addLayout(buttons);

  binder_.Bind(cboList, &model_.cboList);
  binder_.Bind(cboDeviceName, &model_.cboDeviceName);
  binder_.Bind(cboPaperSize, &model_.cboPaperSize);
  binder_.Bind(cboPaperBin, &model_.cboPaperBin);
  binder_.Bind(txtLeftMargin, &model_.txtLeftMargin);
  binder_.Bind(txtTopMargin, &model_.txtTopMargin);
  binder_.Bind(lblLeftMargin, &model_.lblLeftMargin);
  binder_.Bind(lblTopMargin, &model_.lblTopMargin);
  for (int k = 0; k < 5; ++k) {
    binder_.Bind(lblFld_lbl[k], &model_.lblFld_lbl[k]);
    binder_.Bind(txtFld_txt[k], &model_.txtFld_txt[k]);
  }
  binder_.Bind(txtOffsetX, &model_.txtOffsetX);
  binder_.Bind(txtOffsetY, &model_.txtOffsetY);
  binder_.Bind(cmdSetButton, &model_.cmdSetButton);

  connect(cboList, &QComboBox::activated, this, [this](int) { Handle([this] { model_.cboList_Click(); }); });
  connect(cboDeviceName, &QComboBox::activated, this, [this](int) { Handle([this] { model_.cboDeviceName_Click(); }); });
  for (int which = 0; which < 2; ++which) {
    QLineEdit* box = which == 0 ? txtLeftMargin : txtTopMargin;
    connect(box, &QLineEdit::textEdited, this, [this, which](const QString&) { Handle([&] { model_.txtMargin_Change(which); }); });
    connect(box, &QLineEdit::editingFinished, this, [this, which] { Handle([&] { model_.txtMargin_LostFocus(which); }); });
  }
  connect(cmdSetButton, &QPushButton::clicked, this, [this] { cmdSet(); });
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdSheet, &QPushButton::clicked, this, [this] { cmdCalibrationSheet(); });
  Push();
}

void SettingWindow::Pull() {
  binder_.Pull();
  model_.optPaperType = optPaperType[1]->isChecked() ? 1 : 0;
}

void SettingWindow::Push() {
  binder_.Push();
  optPaperType[model_.optPaperType == 1 ? 1 : 0]->setChecked(true);
}

void SettingWindow::Handle(const std::function<void()>& handler) {
  Pull();
  handler();
  Push();
}

void SettingWindow::cmdSet() {
  Handle([this] { model_.cmdSet(); });
  if (model_.closed) accept();
}

void SettingWindow::cmdCalibrationSheet() {
  Pull();
  const std::string printer = model_.cboDeviceName.Text();
  if (printer.empty()) {
    session_.MessageBox("プリンタ名を選択して下さい。", catalogue::kSettingCaption, entry::kInformation);
    return;
  }
  catalogue::CalibrationOffset offset;
  offset.x = std::atoi(model_.txtOffsetX.text.c_str());
  offset.y = std::atoi(model_.txtOffsetY.text.c_str());
  const engine::PrintOutcome outcome = catalogue::PrintCalibrationSheet(
      printer, model_.ReportNo(), offset, model_.cboPaperSize.ItemData(), model_.cboPaperBin.ItemData());
  session_.MessageBox(outcome.ok ? "位置合わせシートを " + outcome.printer + " に送りました。" : outcome.message,
                      catalogue::kSettingCaption, entry::kInformation);
}

}  // namespace lupin::ui
