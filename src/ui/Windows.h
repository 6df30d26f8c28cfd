// The windows of one running program, by which they find each other, and what they have in common.
#pragma once

#include "controls/Form.h"
#include "session/Session.h"

namespace qel {

// The search in the viewer's text; it survives both windows.
struct LogSearch {
  std::string FindText;        // the last text searched for
  Int16 FindMatchCase;         // 1: capital and small letters differ
  Int16 FindDirection = 1;     // 1: down, else up
  float FindLastPos = 0;       // where the selection began after the last search
  bool FindFirstTime = false;  // the next search does not step past the selection
};

struct Windows {
  explicit Windows(Session& session) : session(session) {}

  Session& session;
  qel::Screen Screen;

  TheForm<class frmMain, Windows> MainForm{*this};
  TheForm<class frmSplash, Windows> SplashForm{*this};
  TheForm<class frmReport, Windows> ReportForm{*this};
  TheForm<class frmPrice, Windows> PriceForm{*this};
  TheForm<class frmCompare, Windows> CompareForm{*this};
  TheForm<class frmViewLog, Windows> ViewLogForm{*this};
  TheForm<class frmHelp, Windows> HelpForm{*this};
  TheForm<class frmFind, Windows> FindForm{*this};
  TheForm<class frmPurge, Windows> PurgeForm{*this};
  TheForm<class frmFileRepair, Windows> FileRepairForm{*this};
  TheForm<class frmAbout, Windows> AboutForm{*this};
  TheForm<class frmSetup, Windows> SetupForm{*this};
  TheForm<class frmService, Windows> ServiceForm{*this};
  TheForm<class frmTariff, Windows> TariffForm{*this};
  TheForm<class frmPreConfigure, Windows> PreConfigureForm{*this};
  TheForm<class frmTip, Windows> TipForm{*this};

  // True while the viewer is open; the main window's view commands close it then.
  bool ViewerOpen = false;
  LogSearch search;
};

// A window, with what handlers speak of by its bare name.
class Window : public Form {
 protected:
  Window(std::string name, Windows& windows) : Form(std::move(name), windows.Screen), windows(windows) {}

  Windows& windows;
  Session& session = windows.session;
  Places& places = session.places;
  RegistryStore& store = session.store;
  Settings& settings = session.settings;
  WindowSettings& windowSettings = session.windowSettings;
  LogFile& logFile = session.logFile;
  LogFindings& findings = session.findings;
  Period& period = session.period;
  AnalysisResult& analysis = session.analysis;
};

}  // namespace qel
