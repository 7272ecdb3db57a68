// ByteLen and ByteLeft on the kind of short Japanese address a slip prints.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "common/text.h"
#include "common/vb.h"

namespace {

const std::vector<std::string>& Addresses() {
  static const std::vector<std::string> addresses = [] {
    const char* prefectures[] = {"東京都", "大阪府", "北海道", "神奈川県", "鹿児島県", "三重県", "京都府"};
    const char* cities[] = {"千代田区丸の内", "四日市市諏訪町", "北安曇郡白馬村北城", "中央区日本橋", "札幌市北区北七条西",
                            "横浜市港北区新横浜", "ｶﾜｻｷｼ"};
    const char* numbers[] = {"１－２－３", "2-14-7", "十丁目4番地", "3-1", "５丁目１２番３号"};
    const char* buildings[] = {"", " ﾒｿﾞﾝ101", "　第二ビル４Ｆ", " ABCマンション 305号室"};
    std::vector<std::string> out;
    out.reserve(1000000);
    for (std::size_t i = 0; out.size() < 1000000; ++i) {
      out.push_back(std::string(prefectures[i % 7]) + cities[(i / 7) % 7] + numbers[(i / 49) % 5] +
                    buildings[(i / 245) % 4] + std::to_string(i % 1000));
    }
    return out;
  }();
  return addresses;
}

void BM_ByteLenAndByteLeft(benchmark::State& state) {
  const auto& addresses = Addresses();
  lupin::text::ByteLen("warm up the code table");
  std::size_t i = 0;
  for (auto _ : state) {
    const std::string& address = addresses[i];
    const int length = lupin::text::ByteLen(address);
    benchmark::DoNotOptimize(length);
    benchmark::DoNotOptimize(lupin::text::ByteLeft(address, 24));
    if (++i == addresses.size()) i = 0;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ByteLenAndByteLeft);

void BM_ToCp932(benchmark::State& state) {
  const auto& addresses = Addresses();
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lupin::text::ToCp932(addresses[i]));
    if (++i == addresses.size()) i = 0;
  }
}
BENCHMARK(BM_ToCp932);

void BM_ToNarrow(benchmark::State& state) {
  const auto& addresses = Addresses();
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lupin::text::ToNarrow(addresses[i]));
    if (++i == addresses.size()) i = 0;
  }
}
BENCHMARK(BM_ToNarrow);

void BM_FormatThousands(benchmark::State& state) {
  double value = 1234567;
  for (auto _ : state) {
    benchmark::DoNotOptimize(lupin::vb::Format(value, "#,##0"));
    value += 1;
  }
}
BENCHMARK(BM_FormatThousands);

}  // namespace

BENCHMARK_MAIN();
