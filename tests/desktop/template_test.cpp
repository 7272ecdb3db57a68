#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/template.h"

namespace lupin::desktop {
namespace {

db::Recordset OrderRow() {
  return db::Recordset({"氏名", "会社名", "出荷日", "請求額", "区分", "空欄", "備考", "フラグ", "自己"},
                       {{db::Value("山田太郎"), db::Value(), db::Value("2024/01/31"), db::Value(12345), db::Value("2"),
                         db::Value(""), db::Value("<@氏名@>様"), db::Value(6), db::Value("<@自己@>")}});
}

struct TemplateCase {
  const char* name;
  std::string text;
  std::string expected;
};

class ExpandTemplateTest : public ::testing::TestWithParam<TemplateCase> {};

TEST_P(ExpandTemplateTest, FillsTheTextFromTheRow) {
  const auto& c = GetParam();
  const db::Recordset row = OrderRow();
  std::string text = c.text;
  ExpandTemplate(text, row);
  EXPECT_EQ(text, c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Templates, ExpandTemplateTest,
    ::testing::Values(
        TemplateCase{"NullLeavesNothing", "<@会社名@>御中", "御中"},
        TemplateCase{"UnclosedAfterAField", "<@区分@>と<@氏名", "2と<@氏名"},
        TemplateCase{"NumberFormat", "<@請求額|#,##0@>円", "12,345円"},
        TemplateCase{"DatePlusDaysFormatted", "<@出荷日|DATE|7|YYYY/MM/DD@>", "2024/02/07"},
        TemplateCase{"DateOnTextLeavesText", "<@氏名|DATE|7@>", "山田太郎"},
        TemplateCase{"ValueHoldingAMarker", "<@備考@>", "山田太郎様"},
        // An unknown name ends the work: what is done stays done, the rest stays as it was.
        TemplateCase{"UnknownFieldStops", "<@氏名@>A<@不明@>B<@区分@>", "山田太郎A<@不明@>B<@区分@>"},
        TemplateCase{"InvalidDateStops", "<@区分@><@出荷日|DATE|MM|1@>", "2<@出荷日|DATE|MM|1@>"},
        TemplateCase{"SelfReferenceEnds", "<@自己@>", "<@自己@>"},
        // Conditions.
        TemplateCase{"EmptyQuotesMatchEmptyField", "<?IF 空欄 == ''?>空<?ENDIF?>", "空"},
        // As numbers 2 is below 10; as texts "2" would sort after "10".
        TemplateCase{"NumbersCompareAsNumbers", "<?IF 区分 > 10?>X<?ENDIF?>", ""},
        TemplateCase{"QuotesCompareAsText", "<?IF 区分 > '10'?>T<?ENDIF?>", "T"},
        TemplateCase{"LessOrEqual", "<?IF 請求額 <= 12345?>Y<?ENDIF?>", "Y"},
        TemplateCase{"BitAndNoCommonBit", "<?IF フラグ & 1?>B<?ENDIF?>", ""},
        TemplateCase{"BitOrOneSet", "<?IF 区分 | 0?>O<?ENDIF?>", "O"},
        TemplateCase{"BitOperatorOnTextNeverHolds", "<?IF フラグ & '6'?>B<?ENDIF?>", ""},
        TemplateCase{"UnknownOperatorNeverHolds", "<?IF 区分 =~ 2?>Y<?ENDIF?>", ""},
        TemplateCase{"MissingEndIfStopsConditionsOnly", "<?IF 区分 == 2?>X <@氏名@>", "<?IF 区分 == 2?>X 山田太郎"},
        TemplateCase{"IncompleteHeadStopsConditionsOnly", "<?IF 区分?>X<?ENDIF?><@氏名@>", "<?IF 区分?>X<?ENDIF?>山田太郎"},
        TemplateCase{"LaterBlocksAfterAFalseOne", "<?IF 区分 == 1?>a<?ENDIF?>b<?IF 区分 == 2?>c<?ENDIF?>", "bc"},
        // A block alone on its line takes the line with it when false.
        TemplateCase{"MultiLineBlockTrue", "拝啓\r\n<?IF 区分 == 2?>\r\n特別会員様\r\n<?ENDIF?>\r\n敬具", "拝啓\r\n特別会員様\r\n敬具"},
        TemplateCase{"LastLineFalse", "拝啓\r\n<?IF 区分 == 1?>特別<?ENDIF?>", "拝啓"},
        TemplateCase{"BlanksAndTabsBehindTheBlock", "拝啓\r\n<?IF 区分 == 1?>特別<?ENDIF?> \t\r\n敬具", "拝啓\r\n敬具"},
        TemplateCase{"TabsBehindATrueBlockGo", "拝啓\r\n<?IF 区分 == 2?>特別<?ENDIF?>\t \r\n敬具", "拝啓\r\n特別\r\n敬具"},
        TemplateCase{"EveryTabFromTheBlockOnGoes", "\t拝啓\n<?IF 区分 == 2?>特\t別<?ENDIF?>です\t。\n\t敬具", "\t拝啓\n特別です。\n敬具"},
        TemplateCase{"BodyOfBlanksIsEmpty", "拝啓\n<?IF 区分 == 2?> \t <?ENDIF?>\n敬具", "拝啓\n敬具"},
        TemplateCase{"TextBeforeTheBlockKeepsTheLine", "区分：<?IF 区分 == 1?>特別<?ENDIF?>\r\n敬具", "区分：\r\n敬具"},
        TemplateCase{"IndentedBlockThenAnother", "A\r\n  <?IF 区分 == 1?>x<?ENDIF?>\r\n<?IF 区分 == 3?>y<?ENDIF?>\r\nB", "A\r\nB"},
        TemplateCase{"EmptyLinesOfTheTextStay", "A\r\n\r\n<?IF 区分 == 1?>x<?ENDIF?>\r\nB", "A\r\n\r\nB"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ExpandTemplate, RowAtItsEndStopsAtTheFirstField) {
  db::Recordset row = OrderRow();
  row.MoveNext();
  ASSERT_TRUE(row.Eof());
  std::string text = "<?IF 区分 == '区分'?>literal<?ENDIF?> <@氏名@>";
  ExpandTemplate(text, row);
  EXPECT_EQ(text, "literal <@氏名@>");
}

TEST(FormatField, AppliesDateAndNumberArguments) {
  using Parts = std::vector<std::string>;
  const struct {
    const char* name;
    std::string value;
    Parts parts;
    std::optional<std::string> expected;
  } cases[] = {
      {"TwoNumberFormatsInTurn", "1234.44", {"0.0", "0.00"}, "1234.40"},
      {"FormatThenOffset", "2024/01/31", {"DATE", "YYYY年M月D日", "7"}, "2024/02/07"},
      {"OffsetsAddUp", "2024/01/31", {"DATE", "1", "1", "YYYYMMDD"}, "20240202"},
      {"FormatThatIsNoDateThenOffset", "2024/01/31", {"DATE", "MM", "7"}, std::nullopt},
      {"BeyondTheCalendar", "9999/12/31", {"DATE", "1"}, std::nullopt},
      {"DateWordIsExact", "2024/01/31", {"date", "7"}, "2024/01/31"},
  };
  for (const auto& c : cases) EXPECT_EQ(FormatField(c.value, c.parts), c.expected) << c.name;
}

}  // namespace
}  // namespace lupin::desktop
