#include "engine/report_registry.h"

namespace lupin::engine {

void ReportRegistry::Register(std::string name, ReportFactory factory) {
  for (auto& [key, existing] : factories_) {
    if (key == name) {
      existing = std::move(factory);
      return;
    }
  }
  factories_.emplace_back(std::move(name), std::move(factory));
}

bool ReportRegistry::Has(std::string_view name) const {
  for (const auto& entry : factories_)
    if (entry.first == name) return true;
  return false;
}

std::unique_ptr<Report> ReportRegistry::Create(std::string_view name, entry::Context& context) const {
  for (const auto& [key, factory] : factories_)
    if (key == name) return factory(context);
  return nullptr;
}

std::vector<std::string> ReportRegistry::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : factories_) names.push_back(entry.first);
  return names;
}

}  // namespace lupin::engine
