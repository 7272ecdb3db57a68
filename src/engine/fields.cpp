#include "engine/fields.h"

#include "engine/names.h"

namespace lupin::engine {

void Fields::Add(std::string_view name) {
  if (!Has(name)) calculated_.emplace_back(std::string(name), db::Value());
}

bool Fields::Has(std::string_view name) const {
  for (const auto& [key, value] : calculated_)
    if (EqualsNoCase(key, name)) return true;
  return false;
}

db::Value Fields::Value(std::string_view name) const {
  for (const auto& [key, value] : calculated_)
    if (EqualsNoCase(key, name)) return value;
  const auto& recordset = data_.Recordset;
  if (!recordset || recordset->Eof() || !recordset->HasField(name)) return db::Value();
  return (*recordset)[name];
}

void Fields::Set(std::string_view name, db::Value value) {
  for (auto& [key, stored] : calculated_) {
    if (EqualsNoCase(key, name)) {
      stored = std::move(value);
      return;
    }
  }
  calculated_.emplace_back(std::string(name), std::move(value));
}

}  // namespace lupin::engine
