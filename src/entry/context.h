#pragma once
// What the old component kept in process-wide values, as one object passed by reference.
#include <cstdint>
#include <filesystem>
#include <string>

#include "common/settings.h"
#include "db/connection.h"
#include "entry/report_definition.h"
#include "entry/run_values.h"

namespace lupin::entry {

// The caller's login record, read once when it is handed over.
struct LoginRecord {
  std::string user;                // login user text, passed to the list programs
  std::int16_t number = 0;         // login user number
  std::string client_name;         // CLIENT_NAME: the staging key of every work table
};

struct Context {
  Context(db::Connection* connection_in, settings::StorePaths stores, std::filesystem::path home_in)
      : connection(connection_in), settings(std::move(stores)), home(std::move(home_in)) {}

  db::Connection* connection = nullptr;  // the caller's; never opened or closed here
  settings::Settings settings;
  std::filesystem::path home;            // the component directory: REPORT.INI, hinmei.txt, Format/ …
  std::string command;                   // the command string, free text
  LoginRecord login;
  std::string default_item_name;         // first line of hinmei.txt
  int dialect = 1;                       // ResouceMode
  float tax_rate = 0.05f;                // setting Tax
  ReportDefinition current;              // filled by LoadReportDefinition
  RunValues run;                         // filled by the selection form's cmdSelect

  db::Connection& Db() const;            // throws DbError when no connection was handed over
  const std::string& ClientName() const { return login.client_name; }
};

// Reads the dialect (ResouceMode, default "1") and the tax rate (Tax, default "0.05") from the
// settings into the context, and makes the user settings folder; done when the selection form loads.
void InitialiseContextSettings(Context& context);

}  // namespace lupin::entry
