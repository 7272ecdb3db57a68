// Rendering benchmarks: delivery-note density pages to PDF, text measurement, time to the first
// page, and the same pages drawn by ReportLab for comparison.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "engine/measure.h"
#include "engine/render_pdf.h"

namespace {

using lupin::engine::Alignment;
using lupin::engine::Page;
using lupin::engine::PageItem;

const std::filesystem::path kTemp = std::filesystem::temp_directory_path();

const std::vector<std::string> kCaptions = {
    "納品書", "お客様番号", "ご注文日", "出荷日", "商品コード", "商品名", "数量", "単価",
    "金額", "小計", "消費税", "送料", "合計", "お支払方法", "代金引換", "備考", "様",
    "株式会社ルパン通販", "〒100-0001", "東京都千代田区千代田１－１", "TEL 03-1234-5678"};
const std::vector<std::string> kFamily = {"山田", "佐藤", "鈴木", "高橋", "田中", "伊藤", "渡辺", "中村"};
const std::vector<std::string> kGiven = {"太郎", "花子", "一郎", "美咲", "健太", "由美", "翔", "愛"};
const std::vector<std::string> kItems = {"有機緑茶 100g", "玄米 5kg", "梅干し 300g", "昆布だし",
                                         "手作り味噌 1kg", "黒豆茶 ティーバッグ", "干し椎茸 50g"};
const std::vector<std::string> kTowns = {"大阪府大阪市北区梅田", "北海道札幌市中央区北一条西",
                                         "福岡県福岡市博多区博多駅前", "愛知県名古屋市中区栄",
                                         "宮城県仙台市青葉区本町"};

std::string Yen(int value) {
  std::string digits = std::to_string(value), out;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) out += ',';
    out += digits[i];
  }
  return out;
}

// Three copies of a delivery note on one A4 page: 100 labels per copy, captions repeating on
// every page, names, addresses and amounts changing with the order.
std::vector<Page> DeliveryNotePages(int count) {
  std::mt19937 random(42);
  std::vector<Page> pages;
  pages.reserve(static_cast<std::size_t>(count));
  for (int n = 1; n <= count; ++n) {
    Page page;
    page.number = n;
    page.width = 11906;
    page.height = 16838;
    page.items.reserve(300);
    const std::string name = kFamily[random() % kFamily.size()] + " " + kGiven[random() % kGiven.size()];
    const std::string address = kTowns[random() % kTowns.size()] + std::to_string(random() % 9 + 1) +
                                "－" + std::to_string(random() % 30 + 1);
    for (int copy = 0; copy < 3; ++copy) {
      const std::int32_t base = 400 + copy * 5400;
      auto add = [&](std::string text, std::int32_t left, std::int32_t top, std::int32_t width,
                     const char* font, double size, Alignment alignment) {
        PageItem item;
        item.section = "Detail";
        item.name = "lbl" + std::to_string(page.items.size());
        item.text = std::move(text);
        item.left = left;
        item.top = base + top;
        item.width = width;
        item.height = 260;
        item.font.name = font;
        item.font.size = size;
        item.alignment = alignment;
        page.items.push_back(std::move(item));
      };
      for (std::size_t c = 0; c < kCaptions.size(); ++c) {
        add(kCaptions[c], 600 + static_cast<std::int32_t>(c % 4) * 2600,
            static_cast<std::int32_t>(c / 4) * 280, 2400, "ＭＳ ゴシック", 9, Alignment::Left);
      }
      add(name, 600, 1700, 3000, "ＭＳ 明朝", 12, Alignment::Left);
      add(address, 600, 2000, 5000, "ＭＳ 明朝", 9, Alignment::Left);
      add(std::to_string(100000 + n), 8000, 1700, 2000, "ＭＳ ゴシック", 9, Alignment::Right);
      int total = 0;
      // 15 lines of 5 labels: code, item, quantity, price, amount.
      for (int line = 0; line < 15; ++line) {
        const int quantity = static_cast<int>(random() % 5 + 1);
        const int price = static_cast<int>(random() % 50 + 1) * 100;
        total += quantity * price;
        const std::int32_t top = 2300 + line * 180;
        add("A" + std::to_string(1000 + random() % 200), 600, top, 1000, "ＭＳ ゴシック", 8, Alignment::Left);
        add(kItems[random() % kItems.size()], 1700, top, 3600, "ＭＳ 明朝", 8, Alignment::Left);
        add(std::to_string(quantity), 5400, top, 600, "ＭＳ ゴシック", 8, Alignment::Right);
        add(Yen(price), 6100, top, 1200, "ＭＳ ゴシック", 8, Alignment::Right);
        add(Yen(quantity * price), 7400, top, 1400, "ＭＳ ゴシック", 8, Alignment::Right);
      }
      add(Yen(total), 7400, 5100, 1400, "ＭＳ ゴシック", 9, Alignment::Right);
    }
    page.items.resize(300, page.items.back());  // exactly 300 labels, as the note's density
    pages.push_back(std::move(page));
  }
  return pages;
}

long CurrentRssKb() {
  std::ifstream statm("/proc/self/statm");
  long size = 0, resident = 0;
  statm >> size >> resident;
  return resident * 4;
}

double CpuSeconds(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

long PeakRssKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// Pages are generated on the fly from a pool, so the page model itself does not grow the heap.
// Second argument: render threads (1: one core; 2: the caller shapes, a writer thread draws).
// cpu_pages/s: the pages over the processor time of the busier thread (the caller's, or the rest of
// the process: the writer's), the rate the work allows on a machine with the cores free.
void BM_PdfDeliveryNotes(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const int threads = static_cast<int>(state.range(1));
  const std::vector<Page> pool = DeliveryNotePages(100);
  const std::string path = (kTemp / "lupin_bench_render.pdf").string();
  double busiest = 0;
  for (auto _ : state) {
    const double process_start = CpuSeconds(CLOCK_PROCESS_CPUTIME_ID);
    const double caller_start = CpuSeconds(CLOCK_THREAD_CPUTIME_ID);
    lupin::engine::PdfRenderer renderer(path, threads);
    renderer.Begin({"rptNouhin", "納品書"});
    Page page;
    for (int n = 0; n < count; ++n) {
      page = pool[static_cast<std::size_t>(n) % pool.size()];
      page.number = n + 1;
      // Every order has its own number, so the cache cannot serve the whole page.
      page.items[42].text = std::to_string(200000 + n);
      renderer.AddPage(page);
    }
    renderer.End();
    const double caller = CpuSeconds(CLOCK_THREAD_CPUTIME_ID) - caller_start;
    const double others = CpuSeconds(CLOCK_PROCESS_CPUTIME_ID) - process_start - caller;
    busiest += threads >= 2 ? std::max(caller, others) : caller + others;
  }
  state.counters["cpu_pages/s"] = busiest > 0 ? count * static_cast<double>(state.iterations()) / busiest : 0;
  state.counters["pages/s"] =
      benchmark::Counter(static_cast<double>(count) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate);
  state.counters["rss_MB"] = static_cast<double>(CurrentRssKb()) / 1024.0;
  state.counters["peak_rss_MB"] = static_cast<double>(PeakRssKb()) / 1024.0;
  state.counters["pdf_MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
}
BENCHMARK(BM_PdfDeliveryNotes)
    ->ArgsProduct({{100, 1000, 10000}, {1, 2}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

std::vector<std::string> ShortJapaneseStrings(std::size_t count) {
  std::vector<std::string> out;
  out.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    out.push_back(kFamily[i % kFamily.size()] + kGiven[(i / kFamily.size()) % kGiven.size()] +
                  (i % 3 == 0 ? " 様" : "") + (i % 5 == 0 ? kItems[i % kItems.size()] : ""));
  }
  return out;
}

// Line-breaking measures the names and addresses of a run; they repeat across a run.
void BM_MeasureRepeated(benchmark::State& state) {
  const auto texts = ShortJapaneseStrings(1000);
  lupin::engine::PangoTextMeasurer measurer;
  lupin::engine::FontSpec font;
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(measurer.WidthTwips(texts[i++ % texts.size()], font));
  }
}
BENCHMARK(BM_MeasureRepeated)->Iterations(100000);

// Every string new: the cost of shaping itself.
void BM_MeasureDistinct(benchmark::State& state) {
  lupin::engine::PangoTextMeasurer measurer(16);
  lupin::engine::FontSpec font;
  std::size_t i = 0;
  const auto texts = ShortJapaneseStrings(64);
  for (auto _ : state) {
    const std::string text = texts[i % texts.size()] + std::to_string(i);
    ++i;
    benchmark::DoNotOptimize(measurer.WidthTwips(text, font));
  }
}
BENCHMARK(BM_MeasureDistinct)->Iterations(100000);

// A fresh process: fonts loaded (warm fontconfig cache), first page of a PDF written.
int FirstPageMain(const char* path) {
  const auto start = std::chrono::steady_clock::now();
  lupin::engine::PdfRenderer renderer(path);
  renderer.Begin({"rptNouhin", "納品書"});
  renderer.AddPage(DeliveryNotePages(1)[0]);
  const auto elapsed = std::chrono::steady_clock::now() - start;
  renderer.End();
  std::printf("%.3f\n", std::chrono::duration<double, std::milli>(elapsed).count());
  return 0;
}

std::string SelfPath() { return std::filesystem::read_symlink("/proc/self/exe").string(); }

std::string Capture(const std::string& command) {
  std::string out;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return out;
  std::array<char, 256> buffer{};
  while (fgets(buffer.data(), buffer.size(), pipe) != nullptr) out += buffer.data();
  pclose(pipe);
  return out;
}

void BM_FirstPageFreshProcess(benchmark::State& state) {
  const std::string command = SelfPath() + " --first-page " + (kTemp / "lupin_first.pdf").string();
  double total = 0;
  for (auto _ : state) total += std::atof(Capture(command).c_str());
  state.counters["first_page_ms"] = total / static_cast<double>(state.iterations());
}
BENCHMARK(BM_FirstPageFreshProcess)->Iterations(10)->Unit(benchmark::kMillisecond);

nlohmann::json Dump(const std::vector<Page>& pages) {
  nlohmann::json out;
  out["report"] = "rptNouhin";
  auto& list = out["pages"] = nlohmann::json::array();
  for (const Page& page : pages) {
    nlohmann::json p{{"number", page.number}, {"width", page.width}, {"height", page.height}};
    auto& items = p["items"] = nlohmann::json::array();
    for (const PageItem& item : page.items) {
      items.push_back({{"section", item.section}, {"name", item.name}, {"kind", "Label"},
                       {"text", item.text}, {"visible", item.visible}, {"left", item.left},
                       {"top", item.top}, {"width", item.width}, {"height", item.height},
                       {"font", {{"name", item.font.name}, {"size", item.font.size}}},
                       {"alignment", static_cast<int>(item.alignment)}});
    }
    list.push_back(std::move(p));
  }
  return out;
}

// The same 1,000 pages drawn by ReportLab, timed inside the Python process (drawing and
// writing only, not the JSON load); reported as the peer's pages per second.
void BM_ReportLabPeer(benchmark::State& state) {
  std::vector<Page> pages = DeliveryNotePages(100);
  std::vector<Page> all;
  for (int n = 0; n < 1000; ++n) {
    all.push_back(pages[static_cast<std::size_t>(n) % pages.size()]);
    all.back().number = n + 1;
    all.back().items[42].text = std::to_string(200000 + n);
  }
  const std::string json = (kTemp / "lupin_bench_pages.json").string();
  std::ofstream(json) << Dump(all).dump();
  const std::string script = std::string(LUPIN_BENCH_DIR) + "/reportlab_peer.py";
  // Debian's ReportLab belongs to the system interpreter, not to whatever python3 PATH finds.
  const char* python = std::getenv("LUPIN_PYTHON");
  const std::string interpreter = python != nullptr ? python : "/usr/bin/python3";
  double seconds = 0;
  for (auto _ : state) {
    seconds += std::atof(Capture(interpreter + " " + script + " " + json + " " +
                                 (kTemp / "lupin_reportlab.pdf").string()).c_str());
  }
  state.counters["pages/s"] = seconds > 0 ? 1000.0 * static_cast<double>(state.iterations()) / seconds : 0;
}
BENCHMARK(BM_ReportLabPeer)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--first-page") return FirstPageMain(argv[2]);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
