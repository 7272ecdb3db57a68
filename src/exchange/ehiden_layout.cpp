#include "exchange/ehiden_layout.h"

#include <array>
#include <string_view>

#include "exchange/csv_line.h"
#include "exchange/numbered_fields.h"

namespace lupin::exchange {
namespace {

constexpr std::array<std::string_view, 75> kEhiden3Header = {
    "お届け先コード取得区分", "お届け先コード", "お届け先電話番号", "お届け先郵便番号", "お届け先住所１",
    "お届け先住所２", "お届け先住所３", "お届け先名称１", "お届け先名称２", "お客様管理番号", "お客様コード",
    "部署ご担当者コード取得区分", "部署ご担当者コード", "部署ご担当者名称", "荷送人電話番号",
    "ご依頼主コード取得区分", "ご依頼主コード", "ご依頼主電話番号", "ご依頼主郵便番号", "ご依頼主住所１",
    "ご依頼主住所２", "ご依頼主名称１", "ご依頼主名称２", "荷姿", "品名１", "品名２", "品名３", "品名４", "品名５",
    "荷札荷姿", "荷札品名１", "荷札品名２", "荷札品名３", "荷札品名４", "荷札品名５", "荷札品名６", "荷札品名７",
    "荷札品名８", "荷札品名９", "荷札品名１０", "荷札品名１１", "出荷個数", "スピード指定", "クール便指定", "配達日",
    "配達指定時間帯", "配達指定時間（時分）", "代引金額", "消費税", "決済種別", "保険金額", "指定シール１",
    "指定シール２", "指定シール３", "営業所受取", "SRC区分", "営業所受取営業所コード", "元着区分", "メールアドレス",
    "ご不在時連絡先", "出荷予定日", "セット数", "お問い合せ送り状No.", "出荷場印字区分", "集約解除指定", "編集０１",
    "編集０２", "編集０３", "編集０４", "編集０５", "編集０６", "編集０７", "編集０８", "編集０９", "編集１０",
};

using Fields = NumberedFields;

void Ehiden1(Fields& f, const EhidenOrder& o) {
  f.SetRun(2, o.lines);
  f.Set(7, o.tel);
  f.Set(8, o.zip);
  f.Set(9, o.email);
  f.Set(11, o.id);
  f.Set(14, o.shipper_tel);
  f.SetRun(15, o.sender_address);
  f.SetRun(17, o.sender_name);
  f.Set(19, o.sender_tel);
  f.Set(20, o.sender_zip);
  f.Set(22, "1");
  f.Set(23, "000");
  f.Set(24, o.gift_shop_name);
  f.Set(25, o.delivery_date);
  f.Set(26, o.time_zone);
  f.Set(28, o.amount);
  f.Set(29, o.tax);
  f.SetRun(35, o.items);
}

void Ehiden2(Fields& f, const EhidenOrder& o, const EhidenOptions& options) {
  f.Set(2, o.tel);
  f.Set(3, o.zip);
  f.SetRun(4, o.lines);
  f.Set(9, o.id);
  f.Set(12, o.shipper_tel);
  f.Set(13, o.sender_tel);
  f.Set(14, o.sender_zip);
  f.SetRun(15, o.sender_address);
  f.SetRun(17, o.sender_name);
  f.Set(19, options.slots[0]);
  f.SetRun(20, o.items);
  f.Set(25, "1");
  f.Set(26, options.Speed());
  f.Set(27, options.Cooling());
  f.Set(28, o.delivery_date);
  f.Set(29, o.time_zone);
  f.Set(31, o.amount);
  f.Set(32, o.tax);
  f.SetRun(34, std::array{options.slots[3], options.slots[4], options.slots[5]});
  f.Set(39, "1");
}

void Ehiden3(Fields& f, const EhidenOrder& o, const EhidenOptions& options) {
  f.Set(3, o.tel);
  f.Set(4, o.zip);
  f.SetRun(5, o.lines);
  f.Set(10, o.id);
  f.Set(15, o.shipper_tel);
  f.Set(18, o.sender_tel);
  f.Set(19, o.sender_zip);
  f.SetRun(20, o.sender_address);
  f.SetRun(22, o.sender_name);
  f.Set(24, options.slots[0]);
  f.SetRun(25, o.items);
  f.Set(42, "1");
  f.Set(43, options.Speed());
  f.Set(44, options.Cooling());
  f.Set(45, o.delivery_date);
  f.Set(46, o.time_zone);
  f.Set(48, o.amount);
  f.Set(49, o.tax);
  f.SetRun(52, std::array{options.slots[3], options.slots[4], options.slots[5]});
  f.Set(58, "1");
  f.Set(61, o.planned_ship_date);
}

}  // namespace

int EhidenFieldCount(EhidenGeneration generation) { return generation == EhidenGeneration::III ? 74 : 39; }

void AppendEhiden3Header(std::string& out) {
  AppendQuotedLine(out, kEhiden3Header);
}

void AppendEhidenLine(std::string& out, const EhidenOrder& order, const EhidenOptions& options,
                      EhidenGeneration generation) {
  Fields fields(EhidenFieldCount(generation));
  switch (generation) {
    case EhidenGeneration::I: Ehiden1(fields, order); break;
    case EhidenGeneration::II: Ehiden2(fields, order, options); break;
    case EhidenGeneration::III: Ehiden3(fields, order, options); break;
  }
  AppendQuotedLine(out, fields.Values());
}

}  // namespace lupin::exchange
