#pragma once
// frmAllFormat as a window: the grid of reports with their checks, moving rows, the print settings
// of a row, and saving ENABLED and ORD on closing.
#include <QDialog>
#include <QPushButton>
#include <QTableView>

#include "catalogue/all_format_form.h"
#include "ui/grid_table_model.h"

namespace lupin::ui {

class DesktopSession;

class AllFormatWindow : public QDialog {
 public:
  AllFormatWindow(DesktopSession& session, catalogue::AllFormatForm& model, QWidget* parent);

  // Selects a grid row (1-based), as a click on it does.
  void SelectRow(int row);
  void cmdUpper();
  void cmdLower();
  void cmdSetting();
  void cmdClose();

  catalogue::AllFormatForm& Model() { return model_; }
  QTableView* sprList;
  QPushButton* cmdUpperButton;
  QPushButton* cmdLowerButton;
  QPushButton* cmdSettingButton;
  QPushButton* cmdCloseButton;

 protected:
  void reject() override { cmdClose(); }

 private:
  void Refresh();

  DesktopSession& session_;
  catalogue::AllFormatForm& model_;
  GridTableModel* grid_model_;
};

}  // namespace lupin::ui
