#pragma once
// frmSelect as a window: its widgets carry the model's control names, and every handler runs the
// SelectForm's code between a Pull and a Push.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocalServer>
#include <QMainWindow>
#include <QPushButton>

#include <array>
#include <functional>

#include "run/select_form.h"
#include "ui/form_binder.h"

namespace lupin::ui {

class DesktopSession;
class ListWindow;

class SelectWindow : public QMainWindow {
 public:
  SelectWindow(DesktopSession& session, run::SelectForm& model);
  ~SelectWindow() override;

  // Runs a model handler as the window does: the widgets' values first, the model's after.
  void Handle(const std::function<void()>& handler);
  void Refresh() { binder_.Push(); }
  // The list windows' data strings, as they arrive on the local socket.
  void ReceiveData(const std::string& text, QLocalSocket* from);
  // Opens the list window of orders, customers or items (its title names it).
  ListWindow* OpenList(std::string_view title);
  // The name the list windows connect to; empty when the socket could not listen.
  QString ChannelName() const;

  QComboBox* cboList;
  QLabel* lblReport;
  QGroupBox* fraSelect;
  std::array<QCheckBox*, 4> chkChumonOption;
  std::array<QLineEdit*, 6> txtDate;
  std::array<QLineEdit*, 2> txtId;
  std::array<QLabel*, 2> lblName;
  QComboBox* cboPayment;
  QComboBox* cboShop_id;
  QGroupBox* fraDenNo;
  QLineEdit* txtDenNo;
  QCheckBox* chkReDenNo;
  QGroupBox* fraLabel;
  QCheckBox* chkDistinct;
  QLineEdit* txtStart;
  QGroupBox* fraCustomer;
  std::array<QCheckBox*, 8> chkOption;
  QLineEdit* txtCustomer;
  QLineEdit* txtEda;
  QLabel* lblCust_mei;
  QComboBox* cboKbn;
  std::array<QLineEdit*, 2> txtTanto;
  std::array<QLabel*, 2> LblTantoMei;
  std::array<QLineEdit*, 2> txtTiku;
  QComboBox* cboNendo;
  std::array<QLineEdit*, 2> txtGaku;
  std::array<QLineEdit*, 2> txtItem_id;
  std::array<QLabel*, 2> lblItem_name;
  QComboBox* cboDMKbn;
  QGroupBox* fraItemList;
  QComboBox* cboShop_id2;
  QCheckBox* chkDate;
  QComboBox* cboDate;
  QComboBox* cboOrderBy;
  QPushButton* cmdSelect;
  QPushButton* cmdQuit;
  QPushButton* cmdFormat;
  QPushButton* cmdChumon;
  QPushButton* cmdCustomer;
  QPushButton* cmdItem;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildMenus();
  QWidget* BuildSelectFrame();
  QWidget* BuildItemListFrame();
  QWidget* BuildCustomerFrame();
  QWidget* BuildLabelAndDenNo();
  void Connect();
  void Validate(QLineEdit* box, const std::function<bool()>& rule);
  void Listen();
  // mnuReportForm: the folder of the format files, opened with the desktop's opener.
  void OpenFormatFolder();

  DesktopSession& session_;
  run::SelectForm& model_;
  FormBinder binder_;
  QLocalServer server_;
  bool validating_ = false;
};

}  // namespace lupin::ui
