#pragma once
// frmPreview as a window: the engine's pages as they are laid out, a toolbar with the print tool
// (id 900), zoom and page turning with the ends disabled, the print dialog, and cmdSetting, after
// which the report is displayed anew. The bookkeeping of the print command is PreviewForm's.
#include <QAction>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QScrollArea>
#include <QToolBar>

#include <memory>
#include <vector>

#include "engine/page_model.h"
#include "engine/render_png.h"
#include "run/preview_form.h"
#include "run/preview_paging.h"
#include "run/preview_runner_engine.h"

namespace lupin::ui {

class DesktopSession;

// Keeps the pages of the run for the viewer and tells the window after each one.
class ViewerPages : public engine::PageSink {
 public:
  std::function<void(int pages)> on_page;
  void Begin(const engine::DocumentInfo& info) override;
  void AddPage(const engine::Page& page) override;
  void End() override {}
  const engine::Page* At(int page) const;  // 1-based
  int Count() const { return static_cast<int>(pages_.size()); }

 private:
  std::vector<engine::Page> pages_;
};

// The print command's runner in the desktop: the print dialog chooses the queue first.
class DialogPrintRunner : public run::PreviewRunner {
 public:
  DialogPrintRunner(DesktopSession& session, run::EnginePreviewRunner& engine, QWidget* parent)
      : session_(session), engine_(engine), parent_(parent) {}
  bool Run(entry::Context& context, std::string_view object_name) override { return engine_.Run(context, object_name); }
  int RecordCount() const override { return engine_.RecordCount(); }
  bool Print() override;
  std::string Message() const override { return cancelled_ ? std::string() : engine_.Message(); }
  int Pages() const override { return engine_.Pages(); }

 private:
  DesktopSession& session_;
  run::EnginePreviewRunner& engine_;
  QWidget* parent_;
  bool cancelled_ = false;
};

class PreviewWindow : public QDialog {
 public:
  static constexpr int kPrintToolId = 900;

  PreviewWindow(DesktopSession& session, bool siryo, QWidget* parent);
  ~PreviewWindow() override;

  // S_DisplayReport: runs the report and shows its pages as they come. False without a report.
  bool Display();
  // A click on a toolbar tool, by its id, as the viewer's tool-click event carries it.
  void ToolClick(int id);
  void cmdPrint();
  void cmdSetting();
  void cmdNextPage();
  void cmdPrevPage();
  void cmdLarger();
  void cmdSmaller();

  run::PreviewForm& Model() { return *model_; }
  const run::PreviewPaging& Paging() const { return paging_; }
  run::EnginePreviewRunner& Engine() { return *engine_; }
  int PagesShown() const { return pages_.Count(); }
  // The page image as shown, for tests and screenshots.
  const QImage& PageImage() const { return image_; }
  // Milliseconds from the start of the run to the first page on screen, and to its end.
  qint64 first_page_ms = -1;
  qint64 last_page_ms = -1;

  QToolBar* toolbar;
  QAction* tlbPrint;
  QAction* tlbPrev;
  QAction* tlbNext;
  QAction* tlbLarger;
  QAction* tlbSmaller;
  QAction* tlbSetting;
  QAction* tlbClose;
  QLabel* lblPage;
  QScrollArea* arv;
  QLabel* page_view;

 protected:
  void reject() override;

 private:
  void ShowPage();
  void UpdateTools();
  void OnPage(int count);

  DesktopSession& session_;
  std::unique_ptr<run::EnginePreviewRunner> engine_;
  std::unique_ptr<DialogPrintRunner> runner_;
  std::unique_ptr<run::PreviewForm> model_;
  ViewerPages pages_;
  run::PreviewPaging paging_;
  engine::PageRasterizer rasterizer_;
  QImage image_;
  QElapsedTimer clock_;
  qint64 last_events_ms_ = 0;
  bool running_ = false;
};

}  // namespace lupin::ui
