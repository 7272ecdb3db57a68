#pragma once
// frmSetting as a window: printer, paper size and bin from the printer's capabilities, paper type,
// margins with spin controls, the field texts and the calibration offset of the printer.
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>
#include <functional>

#include "catalogue/setting_form.h"
#include "ui/form_binder.h"

namespace lupin::ui {

class DesktopSession;

class SettingWindow : public QDialog {
 public:
  SettingWindow(DesktopSession& session, catalogue::SettingForm& model, QWidget* parent);

  void Handle(const std::function<void()>& handler);
  void Refresh() { Push(); }
  void cmdSet();
  // Prints the calibration sheet of the chosen printer and report.
  void cmdCalibrationSheet();

  catalogue::SettingForm& Model() { return model_; }
  QComboBox* cboList;
  QComboBox* cboDeviceName;
  QComboBox* cboPaperSize;
  QComboBox* cboPaperBin;
  std::array<QRadioButton*, 2> optPaperType;
  QLineEdit* txtLeftMargin;
  QLineEdit* txtTopMargin;
  QLabel* lblLeftMargin;
  QLabel* lblTopMargin;
  std::array<QLabel*, 5> lblFld_lbl;
  std::array<QLineEdit*, 5> txtFld_txt;
  QLineEdit* txtOffsetX;
  QLineEdit* txtOffsetY;
  QPushButton* cmdSetButton;
  QPushButton* cmdCancel;
  QPushButton* cmdSheet;

 private:
  void Pull();
  void Push();

  DesktopSession& session_;
  catalogue::SettingForm& model_;
  FormBinder binder_;
};

}  // namespace lupin::ui
