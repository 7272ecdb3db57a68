#include "ui/select_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocalSocket>
#include <QMenuBar>
#include <QVBoxLayout>

#include "desktop/list_channel.h"
#include "desktop/shell_execute.h"
#include "ui/desktop_session.h"
#include "ui/list_window.h"
#include "ui/spin_buttons.h"
#include "ui/window_placement.h"

namespace lupin::ui {

namespace {

QString Indexed(const char* name, int index) { return QString("%1[%2]").arg(name).arg(index); }

template <typename W>
W* Named(W* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

QLineEdit* Box(const QString& name, int width) {
  auto* box = Named(new QLineEdit, name);
  box->setFixedWidth(width);
  return box;
}

QHBoxLayout* Row(std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  row->setSpacing(4);
  for (QWidget* widget : widgets) row->addWidget(widget);
  row->addStretch(1);
  return row;
}

}  // namespace

SelectWindow::SelectWindow(DesktopSession& session, run::SelectForm& model)
    : session_(session), model_(model) {
  setObjectName("frmSelect");
  setWindowTitle(Q(run::kSelectCaption));
  BuildMenus();

  auto* central = new QWidget;
  auto* outer = new QVBoxLayout(central);
  cboList = Named(new QComboBox, "cboList");
  cboList->setMinimumWidth(320);
  lblReport = Named(new QLabel, "lblReport");
  outer->addLayout(Row({new QLabel("帳票"), cboList, lblReport}));

  auto* columns = new QHBoxLayout;
  auto* left = new QVBoxLayout;
  left->addWidget(BuildSelectFrame());
  left->addWidget(BuildItemListFrame());
  left->addWidget(BuildLabelAndDenNo());
  left->addStretch(1);
  columns->addLayout(left, 1);
  columns->addWidget(BuildCustomerFrame(), 1);
  outer->addLayout(columns, 1);

  cmdSelect = Named(new QPushButton, "cmdSelect");
  cmdChumon = Named(new QPushButton, "cmdChumon");
  cmdCustomer = Named(new QPushButton, "cmdCustomer");
  cmdItem = Named(new QPushButton, "cmdItem");
  cmdFormat = Named(new QPushButton, "cmdFormat");
  cmdQuit = Named(new QPushButton, "cmdQuit");
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {cmdChumon, cmdCustomer, cmdItem, cmdFormat}) buttons->addWidget(b);
  buttons->addStretch(1);
  buttons->addWidget(cmdSelect);
  buttons->addWidget(cmdQuit);
  cmdSelect->setDefault(true);
  outer->addLayout(buttons);
  setCentralWidget(central);

  binder_.Bind(cboList, &model_.cboList);
  binder_.Bind(lblReport, &model_.lblReport);
  binder_.Bind(fraSelect, &model_.fraSelect);
  for (int i = 0; i < 4; ++i) binder_.Bind(chkChumonOption[i], &model_.chkChumonOption[i]);
  for (int i = 0; i < 6; ++i) binder_.Bind(txtDate[i], &model_.txtDate[i]);
  for (int i = 0; i < 2; ++i) {
    binder_.Bind(txtId[i], &model_.txtId[i]);
    binder_.Bind(lblName[i], &model_.lblName[i]);
    binder_.Bind(txtTanto[i], &model_.txtTanto[i]);
    binder_.Bind(LblTantoMei[i], &model_.LblTantoMei[i]);
    binder_.Bind(txtTiku[i], &model_.txtTiku[i]);
    binder_.Bind(txtGaku[i], &model_.txtGaku[i]);
    binder_.Bind(txtItem_id[i], &model_.txtItem_id[i]);
    binder_.Bind(lblItem_name[i], &model_.lblItem_name[i]);
  }
  binder_.Bind(cboPayment, &model_.cboPayment);
  binder_.Bind(cboShop_id, &model_.cboShop_id);
  binder_.Bind(fraDenNo, &model_.fraDenNo);
  binder_.Bind(txtDenNo, &model_.txtDenNo);
  binder_.Bind(chkReDenNo, &model_.chkReDenNo);
  binder_.Bind(fraLabel, &model_.fraLabel);
  binder_.Bind(chkDistinct, &model_.chkDistinct);
  binder_.Bind(txtStart, &model_.txtStart);
  binder_.Bind(fraCustomer, &model_.fraCustomer);
  for (int i = 0; i < 8; ++i) binder_.Bind(chkOption[i], &model_.chkOption[i]);
  binder_.Bind(txtCustomer, &model_.txtCustomer);
  binder_.Bind(txtEda, &model_.txtEda);
  binder_.Bind(lblCust_mei, &model_.lblCust_mei);
  binder_.Bind(cboKbn, &model_.cboKbn);
  binder_.Bind(cboNendo, &model_.cboNendo);
  binder_.Bind(cboDMKbn, &model_.cboDMKbn);
  binder_.Bind(fraItemList, &model_.fraItemList);
  binder_.Bind(cboShop_id2, &model_.cboShop_id2);
  binder_.Bind(chkDate, &model_.chkDate);
  binder_.Bind(cboDate, &model_.cboDate);
  binder_.Bind(cboOrderBy, &model_.cboOrderBy);
  binder_.Bind(cmdSelect, &model_.cmdSelectButton);
  binder_.Bind(cmdQuit, &model_.cmdQuitButton);
  binder_.Bind(cmdFormat, &model_.cmdFormat);
  binder_.Bind(cmdChumon, &model_.cmdChumon);
  binder_.Bind(cmdCustomer, &model_.cmdCustomer);
  binder_.Bind(cmdItem, &model_.cmdItem);
  Connect();
  Listen();
}

SelectWindow::~SelectWindow() {
  // A box losing the focus while the window goes would otherwise run its rule on a dead form.
  for (QObject* child : findChildren<QObject*>()) child->blockSignals(true);
}

void SelectWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu("ﾌｧｲﾙ(&F)");
  file->setObjectName("mnuFile");
  file->addAction("選択(&S)...", this, [this] { Handle([this] { model_.cmdSelect(); }); });
  file->addSeparator();
  file->addAction("伝票番号取込(&I)...");  // no handler in this component
  file->addSeparator();
  file->addAction("終了(&Q)", this, [this] { close(); });
  QMenu* edit = menuBar()->addMenu("編集(&E)");
  edit->setObjectName("mnuEdit");
  edit->addAction("注文検索(&O)...", this, [this] { OpenList(desktop::kOrderListTitle); });
  edit->addAction("顧客検索(&C)...", this, [this] { OpenList(desktop::kCustomerListTitle); });
  edit->addAction("商品検索(&I)...", this, [this] { OpenList(desktop::kItemListTitle); });
  QMenu* setting = menuBar()->addMenu("設定(&S)");
  setting->setObjectName("mnuSetting");
  setting->addAction("印刷設定(&P)...", this, [this] { session_.ShowModal("frmSetting"); });
  QAction* layout = setting->addAction("帳票ﾚｲｱｳﾄ...", this, [this] { OpenFormatFolder(); });
  layout->setObjectName("mnuReportForm");
  QAction* catalogue = setting->addAction("帳票の表示と順序(&O)...", this, [this] { session_.ShowModal("frmAllFormat"); });
  catalogue->setObjectName("mnuAllFormat");
}

void SelectWindow::OpenFormatFolder() {
  // The format files of the reports lie in the Format folder; the desktop's file manager opens it.
  const std::filesystem::path folder = session_.Context().home / "Format";
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  desktop::ShellExecute shell;
  if (!shell.Execute_Wait(folder.string())) {
    session_.MessageBox(shell.ErrMsg, run::kSelectCaption, entry::kInformation);
  }
}

QWidget* SelectWindow::BuildSelectFrame() {
  fraSelect = Named(new QGroupBox("注文条件"), "fraSelect");
  auto* grid = new QGridLayout(fraSelect);
  for (int i = 0; i < 4; ++i) chkChumonOption[i] = Named(new QCheckBox, Indexed("chkChumonOption", i));
  for (int i = 0; i < 6; ++i) txtDate[i] = Box(Indexed("txtDate", i), 90);
  auto spin = [this](const char* name, int index, std::function<void(int)> step) {
    return new SpinButtons(Indexed(name, index), [this, step](int d) { Handle([&] { step(d); }); });
  };
  grid->addWidget(chkChumonOption[0], 0, 0);
  grid->addLayout(Row({txtDate[0], spin("vsrlDate", 0, [this](int d) { model_.vsrlDate_Change(0, d); }), new QLabel("～"),
                       txtDate[1], spin("vsrlDate", 1, [this](int d) { model_.vsrlDate_Change(1, d); })}),
                  0, 1);
  for (int i = 0; i < 2; ++i) {
    txtId[i] = Box(Indexed("txtId", i), 90);
    lblName[i] = Named(new QLabel, Indexed("lblName", i));
    lblName[i]->setMinimumWidth(150);
  }
  grid->addWidget(chkChumonOption[1], 1, 0);
  grid->addLayout(Row({txtId[0], spin("vsrlId", 0, [this](int d) { model_.vsrlId_Change(0, d); }), lblName[0]}), 1, 1);
  grid->addLayout(Row({new QLabel("～"), txtId[1], spin("vsrlId", 1, [this](int d) { model_.vsrlId_Change(1, d); }),
                       lblName[1]}),
                  2, 1);
  cboPayment = Named(new QComboBox, "cboPayment");
  cboPayment->setMinimumWidth(160);
  grid->addWidget(chkChumonOption[2], 3, 0);
  grid->addLayout(Row({cboPayment}), 3, 1);
  grid->addWidget(chkChumonOption[3], 4, 0);
  cboShop_id = Named(new QComboBox, "cboShop_id");
  cboShop_id->setMinimumWidth(160);
  grid->addWidget(new QLabel("ショップ"), 5, 0);
  grid->addLayout(Row({cboShop_id}), 5, 1);
  return fraSelect;
}

QWidget* SelectWindow::BuildItemListFrame() {
  fraItemList = Named(new QGroupBox("商品別売上集計"), "fraItemList");
  auto* grid = new QGridLayout(fraItemList);
  cboShop_id2 = Named(new QComboBox, "cboShop_id2");
  chkDate = Named(new QCheckBox("期間"), "chkDate");
  cboDate = Named(new QComboBox, "cboDate");
  cboOrderBy = Named(new QComboBox, "cboOrderBy");
  grid->addWidget(new QLabel("ショップ"), 0, 0);
  grid->addLayout(Row({cboShop_id2}), 0, 1);
  grid->addWidget(chkDate, 1, 0);
  grid->addLayout(Row({cboDate, txtDate[5],
                       new SpinButtons("vsrlDate[5]", [this](int d) { Handle([&] { model_.vsrlDate_Change(5, d); }); }),
                       new QLabel("～"), txtDate[4],
                       new SpinButtons("vsrlDate[4]", [this](int d) { Handle([&] { model_.vsrlDate_Change(4, d); }); })}),
                  1, 1);
  grid->addWidget(new QLabel("表示順"), 2, 0);
  grid->addLayout(Row({cboOrderBy}), 2, 1);
  return fraItemList;
}

QWidget* SelectWindow::BuildLabelAndDenNo() {
  auto* holder = new QWidget;
  auto* layout = new QVBoxLayout(holder);
  layout->setContentsMargins(0, 0, 0, 0);
  fraDenNo = Named(new QGroupBox("宅配伝票"), "fraDenNo");
  txtDenNo = Box("txtDenNo", 140);
  chkReDenNo = Named(new QCheckBox, "chkReDenNo");
  auto* den = new QVBoxLayout(fraDenNo);
  den->addLayout(Row({new QLabel("宅配伝票番号(開始)"), txtDenNo}));
  den->addWidget(chkReDenNo);
  fraLabel = Named(new QGroupBox("宛名ラベル"), "fraLabel");
  chkDistinct = Named(new QCheckBox, "chkDistinct");
  txtStart = Box("txtStart", 40);
  auto* lblStartPosition = Named(new QLabel("印刷開始位置"), "lblStartPosition");
  auto* label = new QVBoxLayout(fraLabel);
  label->addWidget(chkDistinct);
  label->addLayout(Row({lblStartPosition, txtStart,
                        new SpinButtons("vsrlStart", [this](int d) { Handle([&] { model_.vsrlStart_Change(d); }); })}));
  layout->addWidget(fraDenNo);
  layout->addWidget(fraLabel);
  return holder;
}

QWidget* SelectWindow::BuildCustomerFrame() {
  fraCustomer = Named(new QGroupBox("顧客条件"), "fraCustomer");
  auto* grid = new QGridLayout(fraCustomer);
  for (int i = 0; i < 8; ++i) chkOption[i] = Named(new QCheckBox, Indexed("chkOption", i));
  txtCustomer = Box("txtCustomer", 120);
  txtEda = Box("txtEda", 40);
  lblCust_mei = Named(new QLabel, "lblCust_mei");
  cboKbn = Named(new QComboBox, "cboKbn");
  for (int i = 0; i < 2; ++i) {
    txtTanto[i] = Box(Indexed("txtTanto", i), 60);
    LblTantoMei[i] = Named(new QLabel, Indexed("LblTantoMei", i));
    txtTiku[i] = Box(Indexed("txtTiku", i), 80);
    txtGaku[i] = Box(Indexed("txtGaku", i), 80);
    txtItem_id[i] = Box(Indexed("txtItem_id", i), 90);
    lblItem_name[i] = Named(new QLabel, Indexed("lblItem_name", i));
  }
  cboNendo = Named(new QComboBox, "cboNendo");
  cboDMKbn = Named(new QComboBox, "cboDMKbn");
  auto spin = [this](int index) {
    return new SpinButtons(Indexed("vsrlDate", index), [this, index](int d) { Handle([&] { model_.vsrlDate_Change(index, d); }); });
  };
  int row = 0;
  grid->addWidget(chkOption[0], row, 0);
  grid->addLayout(Row({txtCustomer, new QLabel("-"), txtEda}), row++, 1);
  grid->addWidget(lblCust_mei, row++, 1);
  grid->addWidget(chkOption[1], row, 0);
  grid->addLayout(Row({cboKbn}), row++, 1);
  grid->addWidget(chkOption[2], row, 0);
  grid->addLayout(Row({txtDate[2], spin(2), new QLabel("～"), txtDate[3], spin(3)}), row++, 1);
  grid->addWidget(chkOption[3], row, 0);
  grid->addLayout(Row({txtTanto[0], LblTantoMei[0], new QLabel("～"), txtTanto[1], LblTantoMei[1]}), row++, 1);
  grid->addWidget(chkOption[4], row, 0);
  grid->addLayout(Row({txtTiku[0], new QLabel("～"), txtTiku[1]}), row++, 1);
  grid->addWidget(chkOption[5], row, 0);
  grid->addLayout(Row({cboNendo, txtGaku[0], new QLabel("～"), txtGaku[1]}), row++, 1);
  grid->addWidget(chkOption[6], row, 0);
  grid->addLayout(Row({txtItem_id[0], lblItem_name[0]}), row++, 1);
  grid->addLayout(Row({new QLabel("～"), txtItem_id[1], lblItem_name[1]}), row++, 1);
  grid->addWidget(chkOption[7], row, 0);
  grid->addLayout(Row({cboDMKbn}), row++, 1);
  grid->setRowStretch(row, 1);
  return fraCustomer;
}

void SelectWindow::Handle(const std::function<void()>& handler) {
  binder_.Pull();
  handler();
  binder_.Push();
}

void SelectWindow::Validate(QLineEdit* box, const std::function<bool()>& rule) {
  // A failed rule moves the focus back, which ends editing again: one message per attempt.
  if (validating_) return;
  validating_ = true;
  binder_.Pull();
  const bool ok = rule();
  binder_.Push();
  if (!ok) box->setFocus();
  validating_ = false;
}

void SelectWindow::Connect() {
  auto clicked = [this](QPushButton* b, std::function<void()> handler) {
    connect(b, &QPushButton::clicked, this, [this, handler] { Handle(handler); });
  };
  auto activated = [this](QComboBox* c, std::function<void()> handler) {
    connect(c, &QComboBox::activated, this, [this, handler](int) { Handle(handler); });
  };
  auto edited = [this](QLineEdit* e, std::function<void()> handler) {
    connect(e, &QLineEdit::textEdited, this, [this, handler](const QString&) { Handle(handler); });
  };
  auto finished = [this](QLineEdit* e, std::function<bool()> rule) {
    connect(e, &QLineEdit::editingFinished, this, [this, e, rule] { Validate(e, rule); });
  };
  activated(cboList, [this] { model_.cboList_Click(); });
  activated(cboShop_id, [this] { model_.cboShop_id_Click(); });
  activated(cboKbn, [this] { model_.cboKbn_Click(); });
  activated(cboNendo, [this] { model_.cboNendo_Click(); });
  activated(cboDMKbn, [this] { model_.cboDMKbn_Click(); });
  for (int i = 0; i < 8; ++i) {
    connect(chkOption[i], &QCheckBox::clicked, this, [this, i](bool) { Handle([this, i] { model_.chkOption_Click(i); }); });
  }
  edited(txtCustomer, [this] { model_.txtCustomer_Change(); });
  finished(txtCustomer, [this] { return model_.txtCustomer_Validate(); });
  finished(txtEda, [this] { return model_.txtEda_Validate(); });
  for (int i = 0; i < 2; ++i) {
    edited(txtTanto[i], [this, i] { model_.txtTanto_Change(i); });
    finished(txtTanto[i], [this, i] { model_.txtTanto_Validate(i); return true; });
    edited(txtTiku[i], [this, i] { model_.txtTiku_Change(i); });
    edited(txtGaku[i], [this, i] { model_.txtGaku_Change(i); });
    finished(txtGaku[i], [this, i] { model_.txtGaku_LostFocus(i); return true; });
    edited(txtItem_id[i], [this, i] { model_.item_field = i; model_.txtItem_id_Change(i); });
    finished(txtItem_id[i], [this, i] { model_.item_field = i; return model_.txtItem_id_Validate(i); });
    finished(txtId[i], [this, i] { return model_.txtId_Validate(i); });
  }
  for (int i = 0; i < 6; ++i) finished(txtDate[i], [this, i] { return model_.txtDate_Validate(i); });
  finished(txtStart, [this] { model_.txtStart_Validate(); return true; });
  finished(txtDenNo, [this] { model_.txtDenNo_LostFocus(); return true; });

  clicked(cmdSelect, [this] { model_.cmdSelect(); });
  connect(cmdQuit, &QPushButton::clicked, this, [this] { close(); });
  connect(cmdFormat, &QPushButton::clicked, this, [this] { session_.ShowModal("frmSetting"); });
  connect(cmdChumon, &QPushButton::clicked, this, [this] { OpenList(desktop::kOrderListTitle); });
  connect(cmdCustomer, &QPushButton::clicked, this, [this] { OpenList(desktop::kCustomerListTitle); });
  connect(cmdItem, &QPushButton::clicked, this, [this] { OpenList(desktop::kItemListTitle); });
}

void SelectWindow::Listen() {
  const QString name = Q(desktop::ListChannelNameForThisUser());
  // A socket left by a desktop that ended without closing would refuse the name.
  QLocalServer::removeServer(name);
  if (!server_.listen(name)) return;
  connect(&server_, &QLocalServer::newConnection, this, [this] {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
      auto buffer = std::make_shared<std::string>();
      connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
      connect(socket, &QLocalSocket::readyRead, this, [this, socket, buffer] {
        *buffer += socket->readAll().toStdString();
        for (const std::string& line : desktop::TakeLines(*buffer)) ReceiveData(line, socket);
      });
    }
  });
}

ListWindow* SelectWindow::OpenList(std::string_view title) {
  // One window per list: a second request brings the open one to the front.
  if (auto* open = findChild<ListWindow*>(Q(title))) {
    BringToFront(*open);
    return open;
  }
  auto* list = new ListWindow(session_.Context().Db(), title, ChannelName(), this);
  list->show();
  return list;
}

QString SelectWindow::ChannelName() const { return server_.isListening() ? server_.fullServerName() : QString(); }

void SelectWindow::ReceiveData(const std::string& text, QLocalSocket* from) {
  bool handled = false;
  Handle([&] { handled = model_.S_RecvData(text); });
  if (!handled) return;
  // The list window that answered has done its work.
  if (from != nullptr) {
    from->write(desktop::Line(desktop::kCloseMessage).c_str());
    from->flush();
  }
  BringToFront(*this);
}

void SelectWindow::closeEvent(QCloseEvent* event) {
  SaveWindowPlacement(*this, session_.Context().home, "frmSelect");
  model_.Form_Unload();
  event->accept();
}

void SelectWindow::resizeEvent(QResizeEvent* event) { QMainWindow::resizeEvent(event); }

}  // namespace lupin::ui
