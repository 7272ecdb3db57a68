// The mail-merge language of free texts: any text expands against a row without a crash and
// without growing beyond what its fields can add.
#include <algorithm>
#include <string>

#include "db/recordset.h"
#include "desktop/template.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  const std::string date = input.Piece();
  const std::string amount = input.Piece();
  std::string text = input.Rest();
  lupin::db::Recordset row({"氏名", "出荷日", "請求額", "ID"},
                           {{lupin::db::Value("山田 太郎"), lupin::db::Value(date), lupin::db::Value(amount),
                             lupin::db::Value(std::int64_t{1234})}});
  // A value may hold its own marker, so the text grows by at most one formatted value (a format
  // can triple what it is given) for each of the 10,000 fields the expander fills.
  const std::size_t before = text.size();
  const std::size_t longest = std::max({date.size(), amount.size(), std::size_t{16}}) + before;
  lupin::desktop::ExpandTemplate(text, row);
  if (text.size() > before + 10000 * 3 * longest) lupin::fuzz::Fail("template grew beyond what its fields can add");
  return 0;
}
