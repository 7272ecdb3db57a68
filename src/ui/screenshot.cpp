#include "ui/screenshot.h"

#include <QCoreApplication>
#include <QPixmap>

#include <iostream>

#include "desktop/list_channel.h"
#include "ui/desktop_session.h"
#include "ui/form_binder.h"
#include "ui/list_window.h"
#include "ui/preview_window.h"
#include "ui/print_window.h"
#include "ui/select_window.h"

namespace lupin::ui {

namespace {

bool Save(QWidget& window, const std::string& file) {
  QCoreApplication::processEvents();
  return window.grab().save(Q(file), "PNG");
}

}  // namespace

int TakeScreenshot(const ScreenshotRequest& request, entry::Context& context) {
  DesktopSession session(context, "", "");
  bool saved = false;
  session.answer_message = [](std::string_view text, std::string_view caption, int style) {
    std::cerr << caption << ": " << text << '\n';
    return (style & 0x7) == entry::kYesNo ? entry::kNo : entry::kOk;
  };
  session.answer_print_dialog = [](const std::vector<std::string>&, const std::string&) { return std::string(); };
  session.drive_modal = [&](std::string_view form, QWidget& window) {
    if (form == "frmPrint" && request.window != "frmPrint") {
      // On to the preview with every row checked, as the print button does.
      static_cast<PrintWindow&>(window).cmdPrint();
      return;
    }
    if (form == "frmPreview") {
      auto& preview = static_cast<PreviewWindow&>(window);
      for (int page = 1; page < request.page; ++page) preview.cmdNextPage();
    }
    if (form == request.window) saved = Save(window, request.file);
  };
  session.Show();
  QCoreApplication::processEvents();
  SelectWindow& select = session.Select();
  run::SelectForm& model = session.SelectModel();
  if (request.report >= 0) {
    select.Handle([&] {
      common::SelectComboByData(model.cboList, static_cast<std::int16_t>(request.report));
      if (model.cboList.list_index >= 0) model.cboList_Click();
    });
    if (model.cboList.list_index < 0) {
      std::cerr << "帳票番号 " << request.report << " は一覧にありません。\n";
      return 1;
    }
  }
  const std::string& window = request.window;
  if (window == "frmSelect") {
    saved = Save(select, request.file);
  } else if (window == "frmPrint" || window == "frmPreview") {
    // The report's own criteria are set aside, so the picture shows rows.
    select.Handle([&] {
      for (auto& check : model.chkChumonOption) check.value = 0;
      model.cmdSelect();
    });
  } else if (window == "frmSetting" || window == "frmAllFormat") {
    session.ShowModal(window);
  } else if (window == desktop::kOrderListTitle || window == desktop::kCustomerListTitle ||
             window == desktop::kItemListTitle) {
    if (ListWindow* list = select.OpenList(window)) saved = Save(*list, request.file);
  }
  if (!saved) {
    std::cerr << "画面 " << window << " を描けませんでした。\n";
    return 1;
  }
  std::cout << request.file << '\n';
  return 0;
}

}  // namespace lupin::ui
