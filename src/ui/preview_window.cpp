#include "ui/preview_window.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QVBoxLayout>

#include "ui/desktop_session.h"
#include "ui/form_binder.h"
#include "ui/print_dialog.h"
#include "ui/window_placement.h"

namespace lupin::ui {

namespace {

constexpr double kScreenDpi = 96;
// While the run lays out pages the window paints and answers at this interval.
constexpr qint64 kEventIntervalMs = 50;

QImage ToImage(const engine::RasterImage& raster) {
  QImage image(raster.width, raster.height, QImage::Format_ARGB32);
  for (int y = 0; y < raster.height; ++y) {
    auto* line = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
    std::copy_n(raster.pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(raster.width),
                raster.width, line);
  }
  return image;
}

}  // namespace

void ViewerPages::Begin(const engine::DocumentInfo& info) {
  (void)info;
  pages_.clear();
}

void ViewerPages::AddPage(const engine::Page& page) {
  pages_.push_back(page);
  if (on_page) on_page(Count());
}

const engine::Page* ViewerPages::At(int page) const {
  if (page < 1 || page > Count()) return nullptr;
  return &pages_[static_cast<std::size_t>(page - 1)];
}

bool DialogPrintRunner::Print() {
  cancelled_ = false;
  const std::vector<std::string> printers = session_.Printers().Printers();
  const std::string proposed = engine_.PrintQueue();
  std::string chosen;
  if (session_.answer_print_dialog) {
    chosen = session_.answer_print_dialog(printers, proposed);
  } else {
    PrintDialog dialog(printers, proposed, parent_);
    chosen = dialog.Ask();
  }
  if (chosen.empty()) {
    cancelled_ = true;
    return false;
  }
  engine_.Outputs().print = true;
  engine_.Outputs().printer = chosen;
  return engine_.Print();
}

PreviewWindow::PreviewWindow(DesktopSession& session, bool siryo, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName("frmPreview");
  run::PreviewOutputs outputs;
  outputs.print = true;  // the pages are kept for the print command
  engine_ = std::make_unique<run::EnginePreviewRunner>(run::ReportObjects(), outputs);
  engine_->AddViewer(&pages_);
  runner_ = std::make_unique<DialogPrintRunner>(session_, *engine_, this);
  model_ = std::make_unique<run::PreviewForm>(session_.Context(), session_, session_.SelectModel(), *runner_, siryo);
  pages_.on_page = [this](int count) { OnPage(count); };
  setWindowTitle(Q(model_->caption));
  resize(900, 760);

  toolbar = new QToolBar(this);
  toolbar->setObjectName("tlbViewer");
  toolbar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  auto tool = [this](const char* name, const char* caption, int id) {
    QAction* action = toolbar->addAction(caption);
    action->setIconText(caption);  // a tool button would drop the "..." of "印刷..."
    action->setObjectName(name);
    action->setData(id);
    connect(action, &QAction::triggered, this, [this, id] { ToolClick(id); });
    return action;
  };
  tlbPrint = tool("tlbPrint", "印刷...", kPrintToolId);
  toolbar->addSeparator();
  tlbPrev = tool("cmdPrevPage", "前ページ", 1);
  tlbNext = tool("cmdNextPage", "次ページ", 2);
  lblPage = new QLabel(this);
  lblPage->setObjectName("lblPage");
  lblPage->setMinimumWidth(120);
  lblPage->setAlignment(Qt::AlignCenter);
  toolbar->addWidget(lblPage);
  toolbar->addSeparator();
  tlbLarger = tool("cmdLarger", "拡大", 3);
  tlbSmaller = tool("cmdSmaller", "縮小", 4);
  toolbar->addSeparator();
  tlbSetting = tool("cmdSetting", "印刷設定", 5);
  tlbClose = tool("cmdClose", "閉じる", 6);

  auto* menu = new QMenuBar(this);
  QMenu* file = menu->addMenu("ﾌｧｲﾙ(&F)");
  file->setObjectName("mnuFileSub");
  file->addAction("印刷(&P)...", this, [this] { cmdPrint(); });
  file->addSeparator();
  file->addAction("閉じる(&C)", this, [this] { reject(); });

  arv = new QScrollArea(this);
  arv->setObjectName("arv");
  arv->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  arv->setBackgroundRole(QPalette::Dark);
  page_view = new QLabel;
  page_view->setObjectName("pageView");
  arv->setWidget(page_view);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->setMenuBar(menu);
  layout->addWidget(toolbar);
  layout->addWidget(arv, 1);
  RestoreWindowPlacement(*this, session_.Context().home, "frmPreview");
  UpdateTools();
}

PreviewWindow::~PreviewWindow() = default;

bool PreviewWindow::Display() {
  pages_.Begin({});
  paging_.Reset();
  image_ = QImage();
  page_view->clear();
  first_page_ms = last_page_ms = -1;
  running_ = true;
  UpdateTools();
  clock_.start();
  last_events_ms_ = 0;
  const bool shown = model_->S_DisplayReport();
  running_ = false;
  last_page_ms = clock_.elapsed();
  setWindowTitle(Q(model_->caption));
  if (!shown && !model_->caption.empty() && !engine_->Message().empty()) {
    session_.MessageBox(engine_->Message(), model_->caption, entry::kExclamation);
  }
  UpdateTools();
  return shown;
}

void PreviewWindow::OnPage(int count) {
  paging_.PagesLaidOut(count);
  if (count == 1) {
    ShowPage();
    first_page_ms = clock_.elapsed();
  }
  const qint64 now = clock_.elapsed();
  if (count == 1 || now - last_events_ms_ >= kEventIntervalMs) {
    last_events_ms_ = now;
    UpdateTools();
    // The pages so far are on screen and the window answers while the run goes on.
    QCoreApplication::processEvents();
  }
}

void PreviewWindow::ShowPage() {
  const engine::Page* page = pages_.At(paging_.Page());
  if (page == nullptr) return;
  std::vector<std::string> problems;
  image_ = ToImage(rasterizer_.Render(*page, kScreenDpi * paging_.Zoom() / 100.0, problems));
  page_view->setPixmap(QPixmap::fromImage(image_));
  page_view->resize(image_.size());
  UpdateTools();
}

void PreviewWindow::UpdateTools() {
  tlbPrev->setEnabled(paging_.CanPrev());
  tlbNext->setEnabled(paging_.CanNext());
  tlbLarger->setEnabled(paging_.CanLarger());
  tlbSmaller->setEnabled(paging_.CanSmaller());
  tlbPrint->setEnabled(!running_ && paging_.Count() > 0);
  tlbSetting->setEnabled(!running_);
  tlbClose->setEnabled(!running_);
  lblPage->setText(paging_.Count() == 0 ? QString()
                                        : QString("%1 / %2 ページ  %3%").arg(paging_.Page()).arg(paging_.Count()).arg(paging_.Zoom()));
}

void PreviewWindow::ToolClick(int id) {
  switch (id) {
    case kPrintToolId: cmdPrint(); break;
    case 1: cmdPrevPage(); break;
    case 2: cmdNextPage(); break;
    case 3: cmdLarger(); break;
    case 4: cmdSmaller(); break;
    case 5: cmdSetting(); break;
    case 6: reject(); break;
    default: break;
  }
}

void PreviewWindow::cmdPrint() {
  if (running_ || paging_.Count() == 0) return;
  const bool printed = model_->cmdPrint();
  if (!printed && !runner_->Message().empty()) session_.MessageBox(runner_->Message(), model_->caption, entry::kExclamation);
}

void PreviewWindow::cmdSetting() {
  if (running_) return;
  session_.ShowModal("frmSetting");
  Display();
}

void PreviewWindow::cmdNextPage() {
  paging_.cmdNextPage();
  ShowPage();
}

void PreviewWindow::cmdPrevPage() {
  paging_.cmdPrevPage();
  ShowPage();
}

void PreviewWindow::cmdLarger() {
  paging_.cmdLarger();
  ShowPage();
}

void PreviewWindow::cmdSmaller() {
  paging_.cmdSmaller();
  ShowPage();
}

void PreviewWindow::reject() {
  if (running_) return;  // the run ends first; its pages are still being made
  SaveWindowPlacement(*this, session_.Context().home, "frmPreview");
  QDialog::reject();
}

}  // namespace lupin::ui
