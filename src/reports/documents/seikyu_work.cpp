#include "reports/documents/seikyu_work.h"

#include <array>
#include <vector>

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

constexpr int kOrderLines = 20;

std::string Quoted(std::string_view text) { return "'" + sql::SqlQuote(text) + "'"; }
std::string Whole(std::string_view text) { return vb::Format(vb::Val(text), "0"); }

struct SlotValues {
  std::string id, text, quantity, amount, note, gift_note;
};

// One order's pages as they are written.
class StatementWriter {
 public:
  StatementWriter(db::Connection& db, const std::string& client) : db_(db), client_(client) {}

  void Start(const db::Recordset& order, int count) {
    order_ = &order;
    id_ = Whole(order["ID"].Text());
    ord_ = 1;
    count_ = count;
    slots_.clear();
    id_string_ = "," + id_;
    total_ = static_cast<std::int64_t>(vb::Val(order["請求額"].Text()));
  }
  void Add(SlotValues slot) { slots_.push_back(std::move(slot)); }
  bool Full() const { return static_cast<int>(slots_.size()) == kSeikyuSlots; }
  bool Empty() const { return slots_.empty(); }
  bool FirstPage() const { return ord_ == 1; }

  void Flush(bool last_page) {
    const db::Recordset& o = *order_;
    std::string sql = "INSERT INTO WK_SEIKYU([ID],[ORD],[郵便番号],[住所],[会社名],[所属],[氏名]";
    for (int k = 1; k <= kSeikyuSlots; ++k) {
      const std::string s = std::to_string(k);
      sql += ",[商品ID" + s + "],[商品名" + s + "],[注文数量" + s + "],[小計" + s + "],[備考" + s + "],[のし" + s + "]";
    }
    sql += ",[商品代金],[消費税],[送料],[決済手数料],[請求額],[支払方法],[返信(出荷)],[ショップ郵便番号],[ショップ住所],"
           "[ショップ名],[ショップ電話番号],[出荷日],[ID_STRING],[電話番号],[CNT],[CLIENT_NAME])VALUES(";
    sql += id_ + "," + std::to_string(ord_);
    for (const char* column : {"請求先郵便番号", "請求先住所", "請求先会社名", "請求先所属", "請求先氏名"})
      sql += "," + Quoted(o[column].Text());
    for (std::size_t k = 0; k < kSeikyuSlots; ++k) {
      if (k < slots_.size()) {
        const SlotValues& s = slots_[k];
        sql += "," + Quoted(s.id) + "," + Quoted(s.text) + "," + sql::NumericText(s.quantity) + "," + s.amount + "," +
               Quoted(s.note) + "," + Quoted(s.gift_note);
      } else {
        // Numbers of an empty slot are NULL: an empty text is no number on every engine.
        sql += ",'','',NULL,NULL,'',''";
      }
    }
    for (const char* column : {"商品代金", "消費税", "送料", "決済手数料", "請求額"}) sql += "," + Whole(o[column].Text());
    for (const char* column : {"支払方法", "返信(出荷)", "ショップ郵便番号", "ショップ住所", "ショップ名", "ショップ電話番号", "出荷日"})
      sql += "," + Quoted(o[column].Text());
    sql += last_page ? "," + Quoted(id_string_.substr(1)) : ",NULL";
    sql += "," + Quoted(o["請求先電話番号"].Text()) + "," + std::to_string(count_) + "," + Quoted(client_) + ")";
    db_.Execute(sql);
    // Each page of an order holds the order's billing total.
    db_.Execute("UPDATE [WK_SEIKYU] SET [請求額] = " + std::to_string(total_) + " WHERE [ID] = " + id_ +
                " AND [CLIENT_NAME] = " + Quoted(client_));
    slots_.clear();
    ++ord_;
  }

 private:
  db::Connection& db_;
  const std::string& client_;
  const db::Recordset* order_ = nullptr;
  std::string id_, id_string_;
  int ord_ = 1, count_ = 0;
  std::int64_t total_ = 0;
  std::vector<SlotValues> slots_;
};

int PrintedCount(db::Connection& db, const std::string& id, std::int32_t report_no) {
  db::Recordset printed = db.Open("SELECT [CNT] FROM [PRINTED] " " WHERE [ID] = " + id + " AND [REPORT_NO] = " +
                                  std::to_string(report_no));
  const double count = printed.Eof() ? 0 : vb::Val(printed["CNT"].Text());
  printed.Close();
  return count > 0 ? static_cast<int>(count) : 0;
}

void LatestShipDates(db::Connection& db, const std::string& client) {
  db::Recordset pages = db.Open("SELECT [ID], [ID_STRING] FROM [WK_SEIKYU] WHERE [CLIENT_NAME] = " + Quoted(client));
  std::string previous;
  for (; !pages.Eof(); pages.MoveNext()) {
    const std::string ids = pages["ID_STRING"].Text();
    if (ids != previous && ids.find(',') != std::string::npos) {
      db::Recordset latest = db.Open("SELECT MAX([出荷日]) as MAX_DATE FROM [CHUMON] " "WHERE [ID] IN (" + ids + ")");
      const std::string date = latest.Eof() ? "" : latest["MAX_DATE"].Text();
      latest.Close();
      db.Execute("UPDATE [WK_SEIKYU] SET [出荷日] = " + Quoted(date) + " WHERE [ORD] = 1 AND [ID] = " +
                 Whole(pages["ID"].Text()) + " AND [CLIENT_NAME] = " + Quoted(client));
    }
    previous = ids;
  }
  pages.Close();
}

}  // namespace

std::string SeikyuLineText(std::string_view name, std::string_view color, std::string_view size, bool name_only) {
  std::string line(name);
  if (!name_only) {
    for (const std::string_view part : {color, size}) {
      if (part.empty()) continue;
      line += line.empty() ? std::string(part) : "   " + std::string(part);
    }
  }
  return text::CharLen(line) > 50 ? text::CharLeft(line, 50) : line;
}

void BuildWkSeikyu(entry::Context& context, std::int32_t report_no, bool name_only) {
  db::Connection& db = context.Db();
  const std::string& client = context.ClientName();
  try {
    db.Execute("DELETE FROM WK_SEIKYU WHERE [CLIENT_NAME] = " + Quoted(client));
    db::Recordset orders = db.Open(
        "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
        "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] FROM [CHUMON], [WK_PRINT] "
        "WHERE [CHUMON].[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = " + Quoted(client) +
        " ORDER BY [CHUMON].[請求先検索用電話番号], [CHUMON].[請求先氏名], [CHUMON].[ID]");
    StatementWriter writer(db, client);
    for (; !orders.Eof(); orders.MoveNext()) {
      const std::string id = Whole(orders["ID"].Text());
      writer.Start(orders, PrintedCount(db, id, report_no));
      for (int n = 1; n <= kOrderLines; ++n) {
        const std::string i = std::to_string(n);
        if (orders["商品ID" + i].Text().empty()) break;
        SlotValues slot;
        // The first line as the print list staged it.
        slot.id = n == 1 ? orders["ITEM_ID1"].Text() : orders["商品ID" + i].Text();
        const std::string name = n == 1 ? orders["BIKO1"].Text() : orders["商品名" + i].Text();
        slot.text = SeikyuLineText(name, orders["商品カラー" + i].Text(), orders["商品サイズ" + i].Text(), name_only);
        slot.quantity = orders["注文数量" + i].Text();
        slot.amount = Whole(orders["小計" + i].Text());
        if (n == 1) {
          slot.note = orders["贈答先氏名"].Text();
          slot.gift_note = orders["のし"].Text();
        }
        writer.Add(std::move(slot));
        if (!writer.Full()) continue;
        const bool more = n < kOrderLines && !orders["商品ID" + std::to_string(n + 1)].Text().empty();
        writer.Flush(!more);
        if (!more) break;
      }
      if (!writer.Empty() || writer.FirstPage()) writer.Flush(true);
    }
    orders.Close();
    LatestShipDates(db, client);
  } catch (const std::exception&) {
    // The statement prints what the table holds.
  }
}

}  // namespace lupin::reports
