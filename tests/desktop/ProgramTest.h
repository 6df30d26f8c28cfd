// A fixture for the whole program with its real windows, whose clockwork stands still.
#pragma once

#include <QApplication>
#include <QTest>
#include <stdexcept>
#include <string>

#include "core/Surroundings.h"
#include "desktop/DesktopHost.h"
#include "desktop/FormFace.h"
#include "desktop/WindowDesigns.h"
#include "startup/QELMain.h"
#include "support/WindowTest.h"

namespace qel {

class ProgramTest : public WindowTest {
 protected:
  ProgramTest() { ShowForms(desktop.Loop); }
  ~ProgramTest() override {
    ReleaseFaces(windows->Screen);
    windows.reset();
  }

  // As a new process has it.
  Windows& BeAsNew() {
    ReleaseFaces(windows->Screen);
    NewProcess();
    desktop.Loop = EventLoop(*windows);
    ShowForms(desktop.Loop);
    return *windows;
  }

  QWidget& WindowOf(const char* form) const { return FaceOf(*windows->Screen.LoadedForm(form))->Window(); }
  template <class Shown>
  Shown& Get(const char* form, const char* name) const {
    auto* const found = WindowOf(form).findChild<Shown*>(name);
    if (!found) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }

  DesktopHost desktop{*windows};
  const Surroundings around{desktop, desktop};

  void ShowForms(EventLoop& loop) {
    auto& attachFace = windows->Screen.AttachFace;
    AttachFaces(windows->Screen, ProgramWindows(), loop);
    attachFace = [attach = attachFace](Form& form) {
      constexpr int AnHour = 3'600'000;
      for (Control* control : form.Controls())
        if (auto* timer = dynamic_cast<Timer*>(control)) timer->Interval = AnHour;
      attach(form);
    };
  }
};

}  // namespace qel
