#pragma once
// The list windows of orders, customers and items. A chosen row goes to the selection form as a
// data string over the local socket; the window closes when the form answers "CLOSEMSG". An
// external list program that speaks the same lines can take its place.
#include <QLocalSocket>
#include <QPushButton>
#include <QTableWidget>
#include <QWidget>

#include <string>
#include <string_view>

#include "db/connection.h"

namespace lupin::ui {

class ListWindow : public QWidget {
 public:
  // title: "注文一覧", "顧客一覧" or "商品一覧".
  ListWindow(db::Connection& connection, std::string_view title, const QString& channel, QWidget* parent = nullptr);

  // Sends the data string of the current row; false without a row or a connection.
  bool cmdOK();
  // The string the current row sends: "ORDERNO=12", "CUSNO=3", "ITEM=A-01".
  std::string DataOfCurrentRow() const;

  QTableWidget* sprList;
  QPushButton* cmdOKButton;
  QPushButton* cmdCancel;

 private:
  void Load(db::Connection& connection);

  std::string title_;
  std::string prefix_;
  QString channel_;
  QLocalSocket socket_;
  std::string buffer_;
};

}  // namespace lupin::ui
