#include "reports/slips/slip_query.h"

#include "common/sql.h"
#include "entry/print_list_order.h"

namespace lupin::reports {

namespace {

constexpr int kOrderLines = 20;

std::string OrderColumns() {
  std::string columns =
      "[CHUMON].[ID],[顧客NO],[受注方法],[顧客番号],[会社名],[所属],[氏名],[氏名カナ],[郵便番号],[住所],[電話番号],"
      "[メールアドレス],[受注日],[支払方法],[電子決済受付No],[意見],[返信（出荷）],[メモ],[メモ2],[メモ3],[請求日],"
      "[入金日],[入金額],[商品代金],[送料],[決済手数料],[消費税],[ポイント利用],[請求額],[出荷伝票番号],[配達希望日],"
      "[配達希望時間帯],[配達日],[配達時間帯],[出荷予定日],[出荷日],";
  for (int n = 1; n <= kOrderLines; ++n) {
    const std::string s = std::to_string(n);
    for (const char* column : {"商品ID", "商品名", "商品カラー", "商品サイズ", "単価", "注文数量", "小計", "消費税区分"})
      columns += "[" + std::string(column) + s + "],";
  }
  columns +=
      "[贈答先会社名],[贈答先所属],[贈答先氏名],[贈答先郵便番号],[贈答先住所],[贈答先電話番号],[のし],[のしコメント],"
      "[請求先会社名],[請求先所属],[請求先氏名],[請求先郵便番号],[請求先住所],[請求先電話番号],"
      "[ショップ名],[ショップ郵便番号],[ショップ住所],[ショップ電話番号],[ショップFAX],[ショップURL],"
      "[ショップ注文メールアドレス],[ショップ問合せメールアドレス],[ショップID]";
  return columns;
}

}  // namespace

std::string StagedOrderQuery(const entry::Context& context) {
  static const std::string columns = OrderColumns();
  return "SELECT [WK_PRINT].*, " + columns + " FROM [CHUMON], [WK_PRINT] " + " WHERE [CHUMON].[ID] = [WK_PRINT].[ID]" +
         " AND [WK_PRINT].[CLIENT_NAME] = '" + sql::SqlQuote(context.ClientName()) + "'" +
         entry::OrderListOrder(entry::ListSort(context.settings));
}

}  // namespace lupin::reports
