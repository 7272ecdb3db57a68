// The desktop services of the selection form: its keyboard hook, the list windows' lines, window
// sizes per form, and launching with and without waiting.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "desktop/key_hook.h"
#include "desktop/list_channel.h"
#include "desktop/shell_execute.h"
#include "desktop/window_size.h"

namespace lupin::desktop {
namespace {

TEST(KeyHook, F12ClosesOnlyTheSelectionFormAndNeverDuringAComposition) {
  struct Row {
    const char* form;
    int key, shift;
    bool composing;
    HookAction action;
  };
  const Row rows[] = {
      {"frmSelect", kKeyF12, 0, false, HookAction::CloseForm},
      {"frmSelect", kKeyF12, 0, true, HookAction::PassOn},   // the input method's key
      {"frmSelect", kKeyF12, 1, false, HookAction::PassOn},  // with shift
      {"frmPrint", kKeyF12, 0, false, HookAction::PassOn},   // another form is active
      {"frmSelect", 13, 0, false, HookAction::PassOn},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(OnKey({r.form, r.key, r.shift, true, r.composing}), r.action) << r.form << " " << r.key;
  }
}

TEST(ListChannel, LinesArriveWholeAndNameTheirListWindow) {
  std::string buffer = "CUSNO=12\r\nORDER";
  EXPECT_EQ(TakeLines(buffer), std::vector<std::string>{"CUSNO=12"});
  EXPECT_EQ(buffer, "ORDER");
  buffer += "NO=5\nITEM=A-1\n";
  EXPECT_EQ(TakeLines(buffer), (std::vector<std::string>{"ORDERNO=5", "ITEM=A-1"}));
  EXPECT_TRUE(buffer.empty());
  EXPECT_EQ(ListTitleFor("CUSNO=12"), "顧客一覧");
  EXPECT_EQ(ListTitleFor("ORDERNO=5"), "注文一覧");
  EXPECT_EQ(ListTitleFor("ITEM=A-1"), "商品一覧");
  EXPECT_EQ(ListTitleFor("CLOSEMSG"), "");
  EXPECT_NE(ListChannelName(1000), ListChannelName(1001));
}

TEST(WindowSize, SavedPerFormAndIncompleteSizesIgnored) {
  const auto home = std::filesystem::temp_directory_path() / ("lupin_ws_" + std::to_string(std::random_device{}()));
  std::filesystem::create_directories(home);
  const auto file = WindowSizeFile(home, "frmPrint");
  EXPECT_EQ(file.filename(), "frmPrint.INI");
  EXPECT_FALSE(ReadWindowSize(file).has_value());
  ASSERT_TRUE(SaveWindowSize(file, {-5, 10, 800, 600}));
  EXPECT_EQ(ReadWindowSize(file), (Rect{-5, 10, 800, 600}));
  ASSERT_TRUE(SaveWindowSize(file, {0, 0, 0, 600}));
  EXPECT_FALSE(ReadWindowSize(file).has_value());
  // A hand-edited file with a number no window can have is no size, whatever the number.
  const struct {
    const char* left;
    const char* height;
  } beyond[] = {{"1", "7.E+682"}, {"1E+10", "600"}, {"-3000000000", "600"}, {"1", "1E+10"}};
  for (const auto& c : beyond) {
    SCOPED_TRACE(std::string(c.left) + " " + c.height);
    std::ofstream(file, std::ios::binary) << "[WindowSize]\r\nLeft=" << c.left << "\r\nTop=2\r\nWidth=800.7\r\nHeight="
                                          << c.height << "\r\n";
    EXPECT_FALSE(ReadWindowSize(file).has_value());
  }
  std::ofstream(file, std::ios::binary) << "[WindowSize]\r\nLeft=1\r\nTop=2\r\nWidth=800.7\r\nHeight=6E+2\r\n";
  EXPECT_EQ(ReadWindowSize(file), (Rect{1, 2, 800, 600}));
  std::filesystem::remove_all(home);
}

TEST(ShellExecute, WaitsForTheProgramAndReportsWhatFailed) {
  ShellExecute shell;
  shell.WaitOption = 1;
  EXPECT_TRUE(shell.Execute_Wait("/bin/true"));
  EXPECT_TRUE(shell.ErrMsg.empty());
  EXPECT_FALSE(shell.Execute_Wait("/bin/false"));
  EXPECT_EQ(shell.Result, 1);
  EXPECT_FALSE(shell.ErrMsg.empty());
  // A document goes to the opener, here one that fails to start.
  shell.opener = "lupin-no-such-opener";
  const auto document = std::filesystem::temp_directory_path() / ("lupin_doc_" + std::to_string(::getpid()) + ".txt");
  std::ofstream(document) << "text";
  std::filesystem::permissions(document, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  for (const std::string& path : {document.string(), std::filesystem::temp_directory_path().string()}) {
    EXPECT_FALSE(shell.Execute_Wait(path)) << path;
    EXPECT_NE(shell.ErrMsg.find("No such file"), std::string::npos) << shell.ErrMsg;
  }
  std::filesystem::remove(document);
}

}  // namespace
}  // namespace lupin::desktop
