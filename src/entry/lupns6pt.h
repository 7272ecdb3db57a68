#pragma once
// The public entry object: a caller hands over a report name, a command string, its open
// connection and its login, then calls Show, which returns when the selection form is closed.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "entry/context.h"
#include "entry/select_form_runner.h"

namespace lupin::entry {

// The caller's login record; each accessor is read once, in this order, when it is handed over.
class LoginInfoSource {
 public:
  virtual ~LoginInfoSource() = default;
  virtual std::string User() const = 0;
  virtual std::int16_t Number() const = 0;
  virtual std::string ClientName() const = 0;
};

// The component directory when the host names none: one well-known folder per user,
// $XDG_DATA_HOME (or ~/.local/share)/Veltrona/LupinOrder6, the one init and the demo use; never
// the folder a process was started from. The stores do not move it.
std::filesystem::path DefaultComponentDirectory(const settings::StorePaths& stores);

class Lupns6pt {
 public:
  Lupns6pt();
  Lupns6pt(settings::StorePaths stores, std::filesystem::path home);
  // Drops the connection reference; the connection itself stays the caller's.
  ~Lupns6pt();
  Lupns6pt(const Lupns6pt&) = delete;
  Lupns6pt& operator=(const Lupns6pt&) = delete;

  void Report(std::string_view report_name) { report_ = report_name; }
  // Kept here and copied into the context, where report objects read it.
  void Command(std::string_view command);
  void dbConnection(db::Connection* connection) { context_.connection = connection; }
  void LoginInfo(const LoginInfoSource& login);
  void LoginInfo(LoginRecord login) { context_.login = std::move(login); }

  // Loads the default item name from hinmei.txt, then runs the selection form until it is closed.
  // Throws std::logic_error when no selection form was registered.
  void Show();

  // A runner for this object only, instead of the registered one; not owned.
  void SetSelectFormRunner(SelectFormRunner* runner) { runner_ = runner; }
  Context& GetContext() { return context_; }
  const Context& GetContext() const { return context_; }

 private:
  Context context_;
  std::string report_;
  std::string command_;
  SelectFormRunner* runner_ = nullptr;
};

}  // namespace lupin::entry
