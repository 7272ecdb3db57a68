#pragma once
// Report objects by name ("rptPickingSyuDate" → its factory).
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/report.h"
#include "entry/context.h"

namespace lupin::engine {

using ReportFactory = std::function<std::unique_ptr<Report>(entry::Context&)>;

class ReportRegistry {
 public:
  // A second registration of a name replaces the first.
  void Register(std::string name, ReportFactory factory);
  bool Has(std::string_view name) const;
  // A new report object of that name, or nullptr when none is registered.
  std::unique_ptr<Report> Create(std::string_view name, entry::Context& context) const;
  std::vector<std::string> Names() const;

 private:
  std::vector<std::pair<std::string, ReportFactory>> factories_;
};

}  // namespace lupin::engine
