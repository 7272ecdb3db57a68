#pragma once
// Orders, shops and tax rates for the business-document tests, a run of a document into pages,
// and golden files of what the pages show.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "engine/page_collection.h"
#include "engine/report_registry.h"
#include "entry/context.h"
#include "support/test_databases.h"

namespace lupin::reports::testing {

struct DocLine {
  std::string id, name, color, size;
  int price = 0;
  double quantity = 1;
  int tax_kbn = 0;     // 消費税区分: not 0 for a tax-included line
  int reduced = 0;     // CHUMON_D.REDUCEDKBN
};

struct DocOrder {
  int id = 1001;
  std::string shop = "S1";
  std::string ordered = "2024/05/30", planned = "2024/06/02", shipped = "2024/06/03", billed = "2024/06/03";
  std::string company = "株式会社見本", department = "営業部", name = "山田 太郎";
  std::string postcode = "100-0001", address = "東京都千代田区千代田1-1\r\n見本ビル3階", tel = "03-1234-5678";
  std::string bill_company, bill_department, bill_name = "山田 太郎", bill_postcode = "100-0001",
              bill_address = "東京都千代田区千代田1-1", bill_tel = "03-1234-5678";
  std::string gift_company, gift_department, gift_name, gift_postcode, gift_address, gift_tel;
  // A line with an empty id is a gap in the numbering.
  std::vector<DocLine> lines;
  int postage = 800, fee = 330, points = 0;
  bool tax_included = false;  // 消費税 0: the whole order is tax-included
  std::string payment = "代金引換";
  std::string biko1 = "#first";  // staging BIKO1; "#first" stands for the first line's name
  std::string client = "WS1";

  int Goods() const;
  int Tax() const { return tax_included ? 0 : Goods() / 10; }
  int Billed() const { return Goods() + postage + fee + Tax() - points; }
};

// n lines, alternating two items of S1, some with colour and size.
std::vector<DocLine> Lines(int count);

// Shops: S1 prints for the orderer (ATENA 0) and has a registration number; S2 addresses a gift's
// recipient (ATENA 1) and has none. TAX: 8 % from 2014/04/01; 10 % and reduced 8 % from 2019/10/01.
class DocumentDb : public lupin::testing::EngineTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  void Insert(const DocOrder& order, bool staged = true);
  void ClearOrders();
  std::unique_ptr<entry::Context> MakeContext(int report_no, int paper_type = 0);
  engine::PageCollection Run(const std::string& object, entry::Context& context);
  // Writes form_NN.lprf in the home's format folder, with these field rows in Detail.
  void WriteFormat(int report_no, const std::string& fields);
  // What each page shows (visible controls with text, one a line) against tests/golden/NAME;
  // LUPIN_UPDATE_GOLDEN=1 writes it instead.
  void ExpectShown(const engine::PageCollection& pages, const std::string& name);
  // The full page dump, positions and fonts included, against tests/golden/NAME.
  void ExpectDump(const engine::PageCollection& pages, const std::string& name);

  std::filesystem::path home_;
  engine::ReportRegistry registry_;

 private:
  void ExpectGoldenText(const std::string& text, const std::string& name);
};

// The text of a control on a page, "<none>" when the page lacks it, "<hidden>" when it is hidden.
std::string Shown(const engine::Page& page, const std::string& name);

}  // namespace lupin::reports::testing
