#include "ui/list_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "desktop/list_channel.h"
#include "ui/form_binder.h"

namespace lupin::ui {

namespace {

struct ListQuery {
  std::string_view title;
  std::string_view prefix;
  std::string_view sql;  // the first column is the value sent
  std::vector<QString> captions;
};

const ListQuery& QueryFor(std::string_view title) {
  // The newest first, as the user looks for what was just entered; a list shows at most 1,000 rows.
  static const std::vector<ListQuery> kQueries{
      {desktop::kOrderListTitle, "ORDERNO=",
       "SELECT [ID],[受注日],[会社名],[氏名],[宅配業者] FROM [CHUMON] ORDER BY [ID] DESC",
       {"ID", "受注日", "会社名", "氏名", "宅配業者"}},
      {desktop::kCustomerListTitle, "CUSNO=",
       "SELECT [顧客NO],[顧客会社名],[顧客名],[TEL番号],[住所] FROM [CUSTOMER] ORDER BY [顧客NO] DESC",
       {"顧客NO", "会社名", "顧客名", "TEL番号", "住所"}},
      {desktop::kItemListTitle, "ITEM=", "SELECT [ITEM_ID],[ITEM_NAME] FROM [ITEM] ORDER BY [ITEM_ID]",
       {"商品ID", "商品名"}},
  };
  for (const auto& query : kQueries) {
    if (query.title == title) return query;
  }
  return kQueries.front();
}

constexpr int kMaxRows = 1000;

}  // namespace

ListWindow::ListWindow(db::Connection& connection, std::string_view title, const QString& channel, QWidget* parent)
    : QWidget(parent, Qt::Window), title_(title), channel_(channel) {
  setObjectName(Q(title));
  setWindowTitle(Q(title));
  setAttribute(Qt::WA_DeleteOnClose);
  prefix_ = std::string(QueryFor(title).prefix);
  sprList = new QTableWidget(this);
  sprList->setObjectName("sprList");
  sprList->setSelectionBehavior(QAbstractItemView::SelectRows);
  sprList->setSelectionMode(QAbstractItemView::SingleSelection);
  sprList->setEditTriggers(QAbstractItemView::NoEditTriggers);
  sprList->verticalHeader()->hide();
  cmdOKButton = new QPushButton("選択", this);
  cmdOKButton->setObjectName("cmdOK");
  cmdCancel = new QPushButton("閉じる", this);
  cmdCancel->setObjectName("cmdCancel");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(sprList, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOKButton);
  buttons->addWidget(cmdCancel);
  layout->addLayout(buttons);
  resize(640, 420);
  Load(connection);

  connect(cmdOKButton, &QPushButton::clicked, this, [this] { cmdOK(); });
  connect(sprList, &QTableWidget::cellDoubleClicked, this, [this](int, int) { cmdOK(); });
  connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
  connect(&socket_, &QLocalSocket::readyRead, this, [this] {
    buffer_ += socket_.readAll().toStdString();
    for (const std::string& line : desktop::TakeLines(buffer_)) {
      if (line == desktop::kCloseMessage) close();
    }
  });
}

void ListWindow::Load(db::Connection& connection) {
  const ListQuery& query = QueryFor(title_);
  sprList->setColumnCount(static_cast<int>(query.captions.size()));
  QStringList captions;
  for (const auto& caption : query.captions) captions << caption;
  sprList->setHorizontalHeaderLabels(captions);
  auto rs = connection.Open(std::string(query.sql));
  int row = 0;
  for (; !rs.Eof() && row < kMaxRows; rs.MoveNext(), ++row) {
    sprList->insertRow(row);
    for (int col = 0; col < sprList->columnCount(); ++col) {
      sprList->setItem(row, col, new QTableWidgetItem(Q(rs.Field(static_cast<std::size_t>(col)).Text())));
    }
  }
  rs.Close();
  sprList->resizeColumnsToContents();
  if (row > 0) sprList->selectRow(0);
}

std::string ListWindow::DataOfCurrentRow() const {
  const int row = sprList->currentRow();
  if (row < 0 || sprList->item(row, 0) == nullptr) return {};
  return prefix_ + S(sprList->item(row, 0)->text());
}

bool ListWindow::cmdOK() {
  const std::string message = DataOfCurrentRow();
  if (message.empty() || channel_.isEmpty()) return false;
  if (socket_.state() != QLocalSocket::ConnectedState) {
    socket_.connectToServer(channel_);
    if (!socket_.waitForConnected(1000)) return false;
  }
  socket_.write(desktop::Line(message).c_str());
  socket_.flush();
  return true;
}

}  // namespace lupin::ui
