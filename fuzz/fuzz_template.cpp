// The mail-merge language of free texts: any text expands against a row without a crash and
// without growing beyond what its fields can add.
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
  const std::size_t before = text.size();
  lupin::desktop::ExpandTemplate(text, row);
  if (text.size() > before * 64 + 4096) __builtin_trap();
  return 0;
}
