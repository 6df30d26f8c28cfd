// qelreport: the reports of the desktop program for scripts, cron and machines without a display.

#include <iostream>
#include <new>

#include "cli/Arguments.h"
#include "cli/CommandLineHost.h"
#include "cli/ReportRun.h"
#include "core/EndProgram.h"
#include "core/Version.h"

int main(int count, char** words) {
  try {
    const qel::Arguments arguments = qel::ParseArguments({words + 1, words + count});
    if (arguments.help) {
      std::cout << qel::HelpText();
      return qel::WholeReport;
    }
    if (arguments.version) {
      std::cout << "qelreport " << qel::VersionText() << '\n';
      return qel::WholeReport;
    }
    return qel::RunReport(arguments);
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
    qel::Complain("out of memory");
    return qel::NoReport;
  }
}
