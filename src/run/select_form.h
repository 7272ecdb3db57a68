#pragma once
// frmSelect: the first window of a run. The user picks a report and the criteria it allows; the
// members are the controls and the methods their handlers, so every view drives the same rules.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/combo.h"
#include "entry/context.h"
#include "entry/ui.h"
#include "run/controls.h"
#include "run/selection.h"

namespace lupin::run {

inline constexpr std::string_view kSelectCaption = "印刷選択";

// Where cmdSelect leads.
enum class SelectOutcome { Stopped, PrintList, Preview };

class SelectForm {
 public:
  SelectForm(entry::Context& context, entry::Ui& ui);

  // Creation, load and the first activation, as the window system calls them.
  void Form_Initialize();
  void Form_Load();
  void Form_Activate();
  void Form_KeyDown(int key_code, int shift);
  void Form_Unload();

  // Lists.
  void S_SetReportSet();
  void LoadShops();
  // Fills cboPayment for all shops (shop "") or one shop; item 0 is selected afterwards.
  void LoadPayments(std::string_view shop);
  void cboList_Click();
  void cboShop_id_Click();

  // Criterion helpers: a value typed or chosen checks its criterion, an empty one clears it.
  void txtCustomer_Change();
  void txtTanto_Change(int index);
  void txtTiku_Change(int index);
  void txtGaku_Change(int index);
  void txtItem_id_Change(int index);
  void cboKbn_Click();
  void cboNendo_Click();
  void cboDMKbn_Click();
  void chkOption_Click(int index);

  // Validation: true when the value is accepted; false keeps the focus in the box.
  bool txtDate_Validate(int index);
  bool txtId_Validate(int index);
  bool txtCustomer_Validate();
  bool txtEda_Validate();
  void txtTanto_Validate(int index);
  void txtGaku_LostFocus(int index);
  bool txtItem_id_Validate(int index);
  void txtStart_Validate();
  void txtDenNo_LostFocus();

  // Spin controls: direction +1 up (next), -1 down (previous).
  void vsrlDate_Change(int index, int direction);
  void vsrlId_Change(int index, int direction);
  void vsrlStart_Change(int direction);

  SelectOutcome cmdSelect();
  void cmdQuit() { Form_Unload(); }

  // Answers from the list windows.
  void S_SetCusNo(std::int64_t number);
  void S_SetOrderNo(std::string_view text);
  void S_SetItemId(std::string_view text);
  // "CUSNO=", "ORDERNO=", "ITEM="; true when the string was handled.
  bool S_RecvData(std::string_view data);

  // The source table of the ID fields: CHUMON unless the definition names another.
  std::string IdTable() const;
  entry::Context& Context() { return context_; }
  const entry::Context& Context() const { return context_; }

  // Public members of the form.
  std::string Report;
  std::string Command;
  std::string SQL;
  int NoCarrierFilter = 0;
  std::int16_t closed = 0;
  Selection selection;       // the last built selection, with the filters of 35 and 44-46
  int dedupe = 0;            // chkDistinct at cmdSelect for a label report
  int start_position = 1;    // txtStart at cmdSelect for a label report
  int cod_position = 0;      // index of the cash-on-delivery item of cboPayment, 0 when none
  int item_field = 0;        // the txtItem_id box that S_SetItemId fills

  // Controls.
  common::ComboModel cboList;
  Label lblReport{"", false};
  Frame fraSelect;
  std::array<CheckBox, 4> chkChumonOption{{{0, "出荷日"}, {0, "ID"}, {0, "支払方法"}, {0, "未印字のみ"}}};
  std::array<TextBox, 6> txtDate;
  std::array<TextBox, 2> txtId;
  std::array<Label, 2> lblName;
  common::ComboModel cboPayment;
  common::ComboModel cboShop_id;
  Frame fraDenNo;
  TextBox txtDenNo;
  CheckBox chkReDenNo{1, "再度付番する"};
  Frame fraLabel;
  CheckBox chkDistinct{1, "重複を省く(TELと名前)"};
  TextBox txtStart{"1"};
  Frame fraCustomer;
  std::array<CheckBox, 8> chkOption{{{0, "顧客電話番号"}, {0, "顧客区分"}, {0, "前回売上日"}, {0, "担当者"},
                                     {0, "郵便番号"}, {0, "年間売上"}, {0, "商品ID"}, {0, "DM区分"}}};
  TextBox txtCustomer;
  TextBox txtEda;
  Label lblCust_mei;
  common::ComboModel cboKbn;
  std::array<TextBox, 2> txtTanto;
  std::array<Label, 2> LblTantoMei;
  std::array<TextBox, 2> txtTiku;
  common::ComboModel cboNendo;
  std::array<TextBox, 2> txtGaku;
  std::array<TextBox, 2> txtItem_id;
  std::array<Label, 2> lblItem_name;
  common::ComboModel cboDMKbn;
  Frame fraItemList{false, false};
  common::ComboModel cboShop_id2;
  CheckBox chkDate;
  common::ComboModel cboDate;
  common::ComboModel cboOrderBy;
  Button cmdSelectButton{"選択"};
  Button cmdQuitButton{"閉じる"};
  Button cmdFormat{"印刷設定"};
  Button cmdChumon{"注文検索"};
  Button cmdCustomer{"顧客検索"};
  Button cmdItem{"商品検索"};

 private:
  void Message(std::string_view text);
  void LoadNewestRecord();
  void ApplyFrames();
  // Fills txtId(i)/lblName(i) from a recordset row of [ID],[会社名],[氏名].
  std::string NameOf(const std::string& company, const std::string& name) const;

  entry::Context& context_;
  entry::Ui& ui_;
  bool activated_ = false;
  bool loaded_ = false;
  bool loading_ = false;
};

}  // namespace lupin::run
