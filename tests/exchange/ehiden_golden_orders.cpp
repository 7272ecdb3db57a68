#include "exchange_fixture.h"

#include "common/text.h"

namespace lupin::exchange::testing {
namespace {

const Fields kShopA = {{"ショップID", "A"}, {"ショップ名", "ルパン\"本店\""}, {"ショップ電話番号", "０３－０００１－０００２"},
                       {"ショップ郵便番号", "100-0005"}, {"ショップ住所", "東京都千代田区丸の内一丁目九番二号　グラントウキョウサウスタワー"}};
const Fields kShopB = {{"ショップID", "B"}, {"ショップ名", "ルパン北海道支店\r\n物産館サッポロ駅前"},
                       {"ショップ電話番号", "011-000-0003"}, {"ショップ郵便番号", "060-0005"},
                       {"ショップ住所", "北海道札幌市中央区北五条西二丁目"}};

Fields With(Fields base, const Fields& more) {
  base.insert(base.end(), more.begin(), more.end());
  return base;
}

}  // namespace

std::vector<ListRow> AddGoldenOrders(db::Connection& db) {
  AddShop(db, "A", 0);
  AddShop(db, "B", 1);
  // Plain order to the customer.
  AddOrder(db, 101, With(kShopA, {{"住所", "東京都新宿区西新宿２－８－１"}, {"電話番号", "03-5321-1111"},
                                  {"郵便番号", "163-8001"}, {"支払方法", "銀行振込"}, {"配達日", "2024/04/12"},
                                  {"配達時間帯", "午前中"}, {"出荷予定日", "2024/04/10"}, {"商品名1", "Tシャツ"},
                                  {"商品名2", "靴下 3足組"}, {"メールアドレス", "yamada@example.jp"}, {"氏名", "山田太郎"}}));
  // Gift of a shop without ATENA: the customer sends, with the company on the first name line.
  AddOrder(db, 102, With(kShopA, {{"贈答先氏名", "佐藤花子"}, {"贈答先住所", "大阪府大阪市北区梅田３－１－１"},
                                  {"贈答先電話番号", "06-1234-5678"}, {"贈答先郵便番号", "530-0001"},
                                  {"住所", "神奈川県横浜市西区みなとみらい２－２－１"}, {"電話番号", "０４５－２２２－３３３３"},
                                  {"郵便番号", "２２０－００１２"}, {"会社名", "株式会社ルパン商事"}, {"氏名", "鈴木一郎"},
                                  {"支払方法", "代引き"}, {"配達時間帯", "午後３時"}, {"配達日", "2024/04/13"},
                                  {"商品名1", "贈答用タオルセット（木箱入り）特選今治タオル"}}));
  // Gift of a shop with ATENA: the report (or the shop) stays the sender.
  AddOrder(db, 103, With(kShopB, {{"贈答先会社名", "有限会社ABC"}, {"贈答先所属", "総務部"}, {"贈答先氏名", "高橋次郎"},
                                  {"贈答先住所", "北海道札幌市中央区北一条西２丁目"}, {"贈答先電話番号", "011-222-3333"},
                                  {"贈答先郵便番号", "060-0001"}, {"住所", "札幌市北区"}, {"電話番号", "011-999-9999"},
                                  {"氏名", "高橋太郎"}, {"支払方法", "代金引換(佐川)"}, {"配達時間帯", "19:00-21:00"},
                                  {"商品名1", "鮭"}}));
  // Long address, long company and name: the last line takes whatever is left of the whole.
  AddOrder(db, 104, With(kShopA, {{"所属", "第一営業部"},
                                  {"住所", "神奈川県足柄下郡箱根町仙石原字台ヶ岳一二三四番地の五　箱根ルパン保養所別館２０１号室"},
                                  {"電話番号", "0460-12-3456"}, {"郵便番号", "250-0631"}, {"支払方法", "代金引換"},
                                  {"配達時間帯", "18時"}, {"出荷予定日", "2024/04/11"}}));
  // Short company and department, a 23-character half-width name: the company goes to line 3;
  // line breaks inside the address and the telephone.
  AddOrder(db, 105, With(kShopA, {{"所属", "経理課"}, {"住所", "東京都港区芝公園４－２－８\r\n東京タワー"},
                                  {"電話番号", "03-1234\r\n-5678"}, {"郵便番号", "105-0011"}, {"支払方法", "代引き "},
                                  {"配達時間帯", "pm4"}, {"商品名1", "ネクタイ \"シルク\""}}));
  // A name over 32 characters with no company; the 22 o'clock zone has no code; a date without
  // zero padding; an e-mail with a line break.
  AddOrder(db, 106, With(kShopA, {{"住所", "京都府京都市東山区清水一丁目二九四番地　音羽山清水寺門前町三丁目"},
                                  {"電話番号", "075-551-1234"}, {"郵便番号", "605-0862"}, {"支払方法", "代金引換"},
                                  {"配達時間帯", "22時"}, {"配達日", "2024/4/5"},
                                  {"メールアドレス", "first.long.address@example.co.jp\r\nsecond.long.address@example.co.jp"},
                                  {"商品名1", "抹茶"}, {"商品名2", "八ッ橋"}, {"商品名3", "七味"}, {"商品名4", "扇子"},
                                  {"商品名5", "ちりめん細工の小物入れ（大）お買い得三点セット"}}));
  AddOrder(db, 107, With(kShopA, {{"住所", "東京都"}, {"電話番号", "03"}}));
  return {
      {true, 101, "", "山田太郎", "5400", "400"},
      {true, 102, "株式会社ルパン商事", "鈴木一郎", " 12800 ", "1163"},
      {true, 103, "", "高橋太郎", "3300", "300"},
      {true, 104, "ルパン・インターナショナル株式会社", "寿限無寿限無五劫の擦り切れ海砂利水魚", "8800", "800"},
      {true, 105, "ABC商事", "ﾔﾏﾀﾞ ﾀﾛｳ ﾄﾞﾅﾙﾄﾞｿﾝ ｼﾞｭﾆｱ", "1100", "100"},
      {true, 106, "", "アレクサンドル・セルゲーエヴィチ・プーシキン記念文学館友の会東京支部", "16500", "1500"},
      {false, 107, "", "未選択", "0", "0"},
      {true, 108, "", "消えた注文", "0", "0"},
  };
}

void ApplySetupA(entry::Context& context) {
  context.current.fld_txt = {" ルパン商店　出荷センター ", "１００－０００１", "０３－１１１１－２２２２", "夜間あり",
                             "東京都千代田区千代田１－１　ルパンビル３階　出荷センター"};
  context.default_item_name.clear();
  WriteBytes(context.home / "ehiden2_option.txt",
             text::ToCp932("荷姿コード：001\r\n便種（スピード）：010\r\n便種（クール便指定）：002\r\n指定シール①：011\r\n"
                           "指定シール②：\r\n指定シール③：013\r\n")
                 .bytes);
}

void ApplySetupB(entry::Context& context) {
  context.current.fld_txt = {"", "", "", "", ""};
  context.default_item_name = "衣料品・雑貨";
  std::filesystem::remove(context.home / "ehiden2_option.txt");
}

}  // namespace lupin::exchange::testing
