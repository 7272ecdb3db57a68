// lupinprint settings get|set|list: the settings stores, read and written by the system's rules.
#include <iostream>
#include <memory>
#include <string>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "app/setting_names.h"
#include "common/settings.h"

namespace lupin::app {
namespace {

struct SettingsArgs {
  std::string settings_dir;
  std::string key;
  std::string value;
};

settings::Settings Stores(const SettingsArgs& args) {
  return settings::Settings(args.settings_dir.empty() ? settings::StorePaths::Default()
                                                      : settings::StorePaths::InFolder(args.settings_dir));
}

const SettingName& Known(const std::string& key) {
  const SettingName* known = FindSetting(key);
  if (known == nullptr) RefuseUsage("設定 '" + key + "' はありません。設定は次のいずれかです: " + KnownSettingList());
  return *known;
}

void Get(const SettingsArgs& args) {
  const SettingName& known = Known(args.key);
  std::cout << Stores(args).GetSetting(known.number, "", known.name) << '\n';
}

// The numbered keys are written by number, so that a key read from the machine store is written
// there too; the others by name, as the system writes them.
void Set(const SettingsArgs& args) {
  const SettingName& known = Known(args.key);
  settings::Settings stores = Stores(args);
  const auto file = stores.StoreFileForWrite(known.number, known.name);
  stores.SaveSetting(known.number, args.value, known.name);
  if (stores.GetSetting(known.number, "", known.name) != args.value) {
    Fail("設定 " + known.name + " を " + file.string() + " に書き込めませんでした。", kExitNotOpened);
  }
  std::cerr << "出力しました: " << file.string() << '\n';
  std::cout << known.name << " = " << args.value << '\n';
}

void List(const SettingsArgs& args) {
  const settings::Settings stores = Stores(args);
  const auto& paths = stores.Paths();
  std::cout << "マシンの設定: " << paths.machine_ini.string() << '\n'
            << "ユーザーの設定: " << paths.user_ini.string() << '\n'
            << "代わりの設定: " << paths.fallback_ini.string() << " (マシンの設定がないときに使います)\n";
  for (const SettingName& known : KnownSettings()) {
    const std::string value = stores.GetSetting(known.number, "", known.name);
    if (!value.empty()) std::cout << known.name << " = " << value << '\n';
  }
}

const RegisterCommand kRegistration([](CLI::App& root) {
  auto args = std::make_shared<SettingsArgs>();
  CLI::App* cmd = root.add_subcommand("settings", "設定の表示と保存 (get KEY, set KEY VALUE, list)");
  cmd->require_subcommand(1);
  cmd->fallthrough();  // --settings may follow get, set or list
  cmd->add_option("--settings", args->settings_dir, "設定ファイルのフォルダ (machine.ini, lupin.ini, fallback.ini)");
  cmd->footer("set は設定を保存します (run の --set はその実行だけ)。書き込んだファイルを表示します。\n"
              "終了コード: 0 完了, 2 設定ファイルに書き込めない, 64 指定の誤り");
  CLI::App* get = cmd->add_subcommand("get", "設定の値を表示");
  get->add_option("KEY", args->key, "設定のキー (例: EHidenPath)")->required();
  get->callback([args] { Get(*args); });
  CLI::App* set = cmd->add_subcommand("set", "設定を保存");
  set->add_option("KEY", args->key, "設定のキー")->required();
  set->add_option("VALUE", args->value, "値")->required();
  set->callback([args] { Set(*args); });
  CLI::App* list = cmd->add_subcommand("list", "設定ファイルと値のある設定の一覧");
  list->callback([args] { List(*args); });
});

}  // namespace
}  // namespace lupin::app
