// What the wizard finds in a store, and what a change writes there, told by modems.wizard.
#include <map>

#include "journeys/Script.h"
#include "platform/Host.h"
#include "settings/StoredValues.h"
#include "support/AnsweringHost.h"
#include "support/FailingDisk.h"
#include "support/FreshProgram.h"
#include "support/Text.h"
#include "wizard/ModemSetup.h"

namespace qel {
namespace {

const std::string ModemClass = "System\\CurrentControlSet\\Services\\Class";

// ~ is the folder.
class ModemTest : public FreshProgram {
 protected:
  void SetModemText(const std::string& key, const std::string& name, const std::string& text) {
    SetKeyValue(store, RegistryRoot::LocalMachine, ModemClass + key, name, text, REG_SZ);
  }

  // "name=text;" for each value of a modem's key, in alphabetical order.
  std::string ModemValues(const std::string& key) const {
    std::string all;
    const auto found = store.Tree().find(KeyPath(RegistryRoot::LocalMachine, ModemClass + key));
    if (found == store.Tree().end()) return all;
    for (const auto& [name, value] : found->second)
      all += name + "=" + TextOf(QueryValue(store, RegistryRoot::LocalMachine, ModemClass + key, name)) + ";";
    return all;
  }

  void Begin(const Act& act) {
    folder.Empty();
    store = {};
    places.DefaultLogDir = folder.Path() + "/";
    places.DefaultLogFile = "ModemLog.txt";
    places.ActiveLogFile = places.ActiveLogDir = "";
    settings.PreferredModem = act.Words.size() > 1 ? std::stoi(act.Word(1)) : 0;
  }
  // modem KEY NAME LOG LOGGING INIT [PORT or DIALOG], "" for what is missing
  void Modem(const Act& act) {
    const std::string &key = act.Word(1), &log = act.Word(3);
    CreatNewKey(store, ModemClass + key, RegistryRoot::LocalMachine);
    SetModemText(key, "DriverDesc", act.Word(2));
    if (!log.empty())
      SetModemText(key, "LoggingPath", log.starts_with('~') ? folder.Path() + log.substr(1) : log);
    if (!act.Word(5).empty()) SetModemText(key, "UserInit", act.Word(5));
    SetKeyValue(store, RegistryRoot::LocalMachine, ModemClass + key, "Logging", Int32(act.Word(4) == "on"),
                REG_BINARY);
    SetModemText(key, key.starts_with("\\Ports") ? "ConfigDialog" : "AttachedTo", act.WordOr(6, ""));
  }

  void Tell(Act& act, const std::string& line) { act.Now.push_back(WithEach(line, folder.Path(), "~")); }
  void TellAll(Act& act) {
    for (int i = 0; i < modems.ModemCount; ++i) {
      const ModemRecord& m = modems.Modems[i];
      Tell(act, m.DriverDesc + " on " + m.AttachedTo + ", log " + m.LoggingPath + ", init " + m.UserInit +
                    (m.Logging ? ", logs" : "") + (m.Echo ? ", echoes" : ""));
      Tell(act, "  " + m.ModemKey + " " + ModemValues(m.ModemKey));
    }
    Tell(act,
         std::string(modems.ModemConfigOK ? "OK" : "not OK") + (modems.NewLogStarted ? ", new log" : ""));
    Tell(act, "active log " + places.ActiveLogDir + "|" + places.ActiveLogFile);
    Tell(act, "default log " + places.DefaultLogDir + "|" + places.DefaultLogFile + " of " +
                  std::to_string(folder.Content(places.DefaultLogFile).size()) + " bytes");
    const std::string general = std::string(SettingsKey) + "\\General";
    Tell(act, "preferred " + TextOf(QueryValue(store, SettingsRoot, general, "PreferredModem")));
    for (const auto& error : host.errors) Tell(act, error);
    for (const auto& told : host.transcript) Tell(act, told);
  }

  // change N [full ANSWER]: nothing can be written, and that is the answer; Retry, then Ignore.
  void Play(Act& act) {
    const std::string& what = act.Words[0];
    if (what == "begin") return Begin(act);
    if (what == "modem") return Modem(act);
    if (what == "file") return folder.Put(act.Word(1), "kept");
    host.transcript.clear();
    const std::string answer = act.WordOr(3, "");
    static const std::map<std::string, Answer> Answers = {{"Retry", Answer::Retry}, {"Abort", Answer::Abort}};
    host.AnswerErrors({Answers.contains(answer) ? Answers.at(answer) : Answer::Ignore, Answer::Ignore});
    const DiskInPlace inPlace(disk);
    answer.empty() ? disk.Mend() : disk.FailFrom(1, ENOSPC);
    try {
      if (what == "change") modems.DoChange(Int16(std::stoi(act.Word(1))));
      if (what != "change") Tell(act, modems.PreConfigure(what == "ask") ? "wizard" : "quiet");
    } catch (const ProgramEnd&) {
      Tell(act, "the program ends");
    }
    TellAll(act);
  }

  ModemSetup modems{store, settings, places};
  FailingDisk disk;
  TellingHost host;
};

TEST_F(ModemTest, ModemsAreFoundLookedAtAndChanged) {
  ExpectScript("wizard/modems.wizard", [this](Act& act) { Play(act); });
}

}  // namespace
}  // namespace qel
