#include "ui/print_window.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QMenuBar>

#include "ui/desktop_session.h"
#include "ui/form_binder.h"
#include "ui/window_placement.h"

namespace lupin::ui {

namespace {
constexpr int kWidth = 860, kHeight = 560, kMenuHeight = 24, kMargin = 8, kButtonWidth = 100, kButtonHeight = 28;
}

PrintWindow::PrintWindow(DesktopSession& session, run::PrintForm& model, QWidget* parent)
    : QDialog(parent), session_(session), model_(model) {
  setObjectName("frmPrint");
  setWindowTitle(Q(run::kPrintCaption));
  resize(kWidth, kHeight);

  auto* menu = new QMenuBar(this);
  menu->setGeometry(0, 0, kWidth, kMenuHeight);
  QMenu* file = menu->addMenu("ﾌｧｲﾙ(&F)");
  file->setObjectName("mnuFileSub");
  file->addAction("印刷(&P)", this, [this] { cmdPrint(); });
  file->addSeparator();
  file->addAction("閉じる(&C)", this, [this] { reject(); });
  QMenu* select = menu->addMenu("選択(&S)");
  select->setObjectName("mnuSelectSub");
  select->addAction("全選択(&A)", this, [this] { model_.cmdAllSelect(); Refresh(); });
  select->addAction("全解除(&R)", this, [this] { model_.cmdAllEject(); Refresh(); });

  sprList = MakeGrid("sprList", list_model_, model_.sprList);
  sprCustomer = MakeGrid("sprCustomer", customer_model_, model_.sprCustomer);
  auto button = [this](const char* name, const char* tag) {
    auto* b = new QPushButton(this);
    b->setObjectName(name);
    b->setProperty("Tag", tag);
    return b;
  };
  cmdAllSelect = button("cmdAllSelect", "LEFTBOTTOM");
  cmdAllEject = button("cmdAllEject", "LEFTBOTTOM");
  cmdSiryoButton = button("cmdSiryo", "RIGHTBOTTOM");
  cmdPathButton = button("cmdPath", "RIGHTBOTTOM");
  cmdPrintButton = button("cmdPrint", "RIGHTBOTTOM");
  cmdClose = button("cmdClose", "RIGHTBOTTOM");
  const int grid_top = kMenuHeight + kMargin, button_top = kHeight - kMargin - kButtonHeight;
  for (QTableView* grid : {sprList, sprCustomer}) {
    grid->setProperty("Tag", "LEFTRIGHTTOPBOTTOM");
    grid->setGeometry(kMargin, grid_top, kWidth - 2 * kMargin, button_top - kMargin - grid_top);
  }
  cmdAllSelect->setGeometry(kMargin, button_top, kButtonWidth, kButtonHeight);
  cmdAllEject->setGeometry(kMargin + kButtonWidth + 4, button_top, kButtonWidth, kButtonHeight);
  int right = kWidth - kMargin;
  for (QPushButton* b : {cmdClose, cmdPrintButton, cmdPathButton, cmdSiryoButton}) {
    right -= kButtonWidth;
    b->setGeometry(right, button_top, kButtonWidth, kButtonHeight);
    right -= 4;
  }
  cmdSiryoButton->setGeometry(cmdSiryoButton->x() - 20, button_top, kButtonWidth + 20, kButtonHeight);
  RecordAnchors();

  connect(cmdAllSelect, &QPushButton::clicked, this, [this] { model_.cmdAllSelect(); Refresh(); });
  connect(cmdAllEject, &QPushButton::clicked, this, [this] { model_.cmdAllEject(); Refresh(); });
  connect(cmdPrintButton, &QPushButton::clicked, this, [this] { cmdPrint(); });
  connect(cmdPathButton, &QPushButton::clicked, this, [this] { cmdPath(); });
  connect(cmdSiryoButton, &QPushButton::clicked, this, [this] { model_.cmdSiryo(); model_.Form_Activate(); Refresh(); });
  connect(cmdClose, &QPushButton::clicked, this, [this] { reject(); });
  RestoreWindowPlacement(*this, session_.Context().home, "frmPrint");
}

QTableView* PrintWindow::MakeGrid(const char* name, GridTableModel*& model, common::Grid& grid) {
  auto* view = new QTableView(this);
  view->setObjectName(name);
  model = new GridTableModel(grid, view);
  view->setModel(model);
  view->setSelectionBehavior(QAbstractItemView::SelectRows);
  view->verticalHeader()->setDefaultSectionSize(22);
  view->horizontalHeader()->setDefaultSectionSize(110);
  return view;
}

void PrintWindow::RecordAnchors() {
  anchors_.Record(kWidth, kHeight);
  for (QWidget* w : {static_cast<QWidget*>(sprList), static_cast<QWidget*>(sprCustomer),
                     static_cast<QWidget*>(cmdAllSelect), static_cast<QWidget*>(cmdAllEject),
                     static_cast<QWidget*>(cmdSiryoButton), static_cast<QWidget*>(cmdPathButton),
                     static_cast<QWidget*>(cmdPrintButton), static_cast<QWidget*>(cmdClose)}) {
    const QRect g = w->geometry();
    anchors_.Add(S(w->property("Tag").toString()), {g.x(), g.y(), g.width(), g.height()});
    anchored_.push_back(w);
  }
}

void PrintWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  const auto rects = anchors_.Resize(width(), height());
  for (std::size_t i = 0; i < rects.size() && i < anchored_.size(); ++i) {
    anchored_[i]->setGeometry(rects[i].left, rects[i].top, rects[i].width, rects[i].height);
  }
}

void PrintWindow::Refresh() {
  const auto bind = [](QPushButton* widget, const common::Button& button) {
    widget->setText(Q(button.caption));
    widget->setVisible(button.visible);
    widget->setEnabled(button.enabled);
  };
  bind(cmdPrintButton, model_.cmdPrintButton);
  bind(cmdPathButton, model_.cmdPathButton);
  bind(cmdSiryoButton, model_.cmdSiryoButton);
  bind(cmdAllSelect, model_.cmdAllSelectButton);
  bind(cmdAllEject, model_.cmdAllEjectButton);
  bind(cmdClose, model_.cmdClose);
  sprList->setVisible(model_.sprList.Visible());
  sprCustomer->setVisible(model_.sprCustomer.Visible());
  list_model_->Reload();
  customer_model_->Reload();
  ApplyHiddenColumns(*sprList, model_.sprList);
  ApplyHiddenColumns(*sprCustomer, model_.sprCustomer);
  sprList->setColumnWidth(0, 36);
  sprCustomer->setColumnWidth(0, 36);
}

void PrintWindow::cmdPrint() {
  model_.cmdPrint();
  // Back from the preview: the form is activated again.
  if (!model_.unloaded) model_.Form_Activate();
  Refresh();
}

void PrintWindow::cmdPath() {
  const run::FileReportTarget target = model_.cmdPath_Start();
  const QString start = Q(target.current.empty() ? target.default_path : target.current);
  const QString chosen = QFileDialog::getSaveFileName(this, "出力先", start, Q(target.filter));
  if (!chosen.isEmpty()) model_.cmdPath_Confirm(S(chosen));
}

void PrintWindow::done(int result) {
  SaveWindowPlacement(*this, session_.Context().home, "frmPrint");
  QDialog::done(result);
}

}  // namespace lupin::ui
