// Days by the hour.

#include "desktop/ControlFace.h"
#include "desktop/TimetableWidget.h"

namespace qel {

namespace {

class TimetableFace : public ControlFace {
 public:
  TimetableFace(FormFace& form, Timetable& model, TimetableWidget& picture)
      : ControlFace(form, model, &picture), model(model), picture(picture) {}

 private:
  void Push() override {
    ControlFace::Push();
    picture.Show(model.Shows);
  }

  Timetable& model;
  TimetableWidget& picture;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfTimetable(FormFace& form, Control& control) {
  return FaceOf<TimetableFace, Timetable, TimetableWidget>(form, control);
}

}  // namespace qel
