#include "entry/lupns6pt.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

#include "common/files.h"

namespace lupin::entry {

std::filesystem::path DefaultComponentDirectory(const settings::StorePaths& stores) {
  (void)stores;
  const auto folder = [](const std::filesystem::path& data) { return data / "Veltrona" / "LupinOrder6"; };
  if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') return folder(data);
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') {
    const passwd* entry = ::getpwuid(::getuid());
    home = entry != nullptr ? entry->pw_dir : "/";
  }
  return folder(std::filesystem::path(home) / ".local" / "share");
}

Lupns6pt::Lupns6pt() : Lupns6pt(settings::StorePaths::Default(), {}) {}

Lupns6pt::Lupns6pt(settings::StorePaths stores, std::filesystem::path home)
    : context_(nullptr, stores, home.empty() ? DefaultComponentDirectory(stores) : std::move(home)) {}

Lupns6pt::~Lupns6pt() { context_.connection = nullptr; }

void Lupns6pt::Command(std::string_view command) {
  command_ = command;
  context_.command = command_;
}

void Lupns6pt::LoginInfo(const LoginInfoSource& login) {
  LoginRecord record;
  record.user = login.User();
  record.number = login.Number();
  record.client_name = login.ClientName();
  context_.login = std::move(record);
}

void Lupns6pt::Show() {
  // Read on every Show, so a changed or removed file takes effect without restarting the host.
  context_.default_item_name = files::ReadFirstLine(context_.home / "hinmei.txt");
  SelectFormRunner* runner = runner_ ? runner_ : RegisteredSelectFormRunner();
  if (runner == nullptr) throw std::logic_error("選択画面が登録されていません。");
  runner->Run(context_, report_, command_);
}

}  // namespace lupin::entry
