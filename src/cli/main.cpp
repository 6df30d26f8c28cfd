// qelreport: the reports of the desktop program for scripts, cron and machines without a display.

#include <iostream>
#include <new>
#include <optional>
#include <string>

#include "cli/Arguments.h"
#include "cli/CommandLineHost.h"
#include "cli/ReportOutput.h"
#include "cli/ReportRun.h"
#include "cli/SettingsImport.h"
#include "core/Version.h"
#include "platform/Host.h"

namespace {

qel::ExitStatus StatusOf(bool success) { return success ? qel::WholeReport : qel::NoReport; }

qel::ExitStatus Print(const std::string& text) { return StatusOf(qel::WriteOut(text, std::nullopt)); }

}  // namespace

int main(int count, char** words) {
  qel::CommandLineHost host;
  try {
    const qel::Arguments arguments = qel::ParseArguments({words + 1, words + count});
    if (arguments.help) return Print(qel::HelpText());
    if (arguments.version) return Print("qelreport " + qel::VersionText() + "\n");
    if (arguments.import) return StatusOf(qel::ImportSettings(*arguments.import));
    return qel::RunReport(arguments, host);
  } catch (const qel::ArgumentError& error) {
    qel::Complain(error.what());
    std::cerr << qel::UsageText();
    return qel::WrongArguments;
  } catch (const qel::ProgramEnd&) {
    return qel::NoReport;  // the host said why
  } catch (const qel::RunTimeError& error) {
    qel::Complain(error.Description());
    return qel::NoReport;
  } catch (const std::bad_alloc&) {
    qel::Complain(qel::ErrorDescription(qel::OutOfMemory));
    return qel::NoReport;
  }
}
