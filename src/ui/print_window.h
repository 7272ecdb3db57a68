#pragma once
// frmPrint as a window: the print list with a check per row, the select buttons, and cmdPrint,
// which stages the checked rows and opens the preview, or writes the file of a file report.
// Controls keep their places by their anchor Tags when the window is resized.
#include <QDialog>
#include <QPushButton>
#include <QTableView>

#include "desktop/anchor.h"
#include "run/print_form.h"
#include "ui/grid_table_model.h"

namespace lupin::ui {

class DesktopSession;

class PrintWindow : public QDialog {
 public:
  PrintWindow(DesktopSession& session, run::PrintForm& model, QWidget* parent);

  // Shows the model after a handler: captions, visible grid, rows.
  void Refresh();
  void cmdPrint();
  void cmdPath();

  run::PrintForm& Model() { return model_; }
  QTableView* sprList;
  QTableView* sprCustomer;
  QPushButton* cmdPrintButton;
  QPushButton* cmdPathButton;
  QPushButton* cmdSiryoButton;
  QPushButton* cmdAllSelect;
  QPushButton* cmdAllEject;
  QPushButton* cmdClose;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void done(int result) override;

 private:
  QTableView* MakeGrid(const char* name, GridTableModel*& model, common::Grid& grid);
  void RecordAnchors();

  DesktopSession& session_;
  run::PrintForm& model_;
  GridTableModel* list_model_ = nullptr;
  GridTableModel* customer_model_ = nullptr;
  desktop::AnchorLayout anchors_;
  std::vector<QWidget*> anchored_;
};

}  // namespace lupin::ui
