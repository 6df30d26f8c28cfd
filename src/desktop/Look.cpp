#include "desktop/Look.h"

#include <QApplication>
#include <QFont>
#include <QFontInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <QToolTip>

#include "platform/Host.h"

namespace qel {

namespace {

const struct {
  QPalette::ColorRole role;
  QRgb colour;
} Colours[] = {
    {QPalette::Window, StandardGrey},  {QPalette::Button, StandardGrey},
    {QPalette::Light, 0xFFFFFF},       {QPalette::Midlight, 0xDFDFDF},
    {QPalette::Mid, 0x808080},         {QPalette::Dark, 0x808080},
    {QPalette::Shadow, 0x000000},      {QPalette::WindowText, 0x000000},
    {QPalette::ButtonText, 0x000000},  {QPalette::Text, 0x000000},
    {QPalette::Base, 0xFFFFFF},        {QPalette::AlternateBase, 0xF0F0F0},
    {QPalette::Highlight, 0x000080},   {QPalette::HighlightedText, 0xFFFFFF},
    {QPalette::BrightText, 0xFFFFFF},  {QPalette::Link, 0x0000FF},
    {QPalette::LinkVisited, 0x800080}, {QPalette::ToolTipBase, 0xFFFFE1},
    {QPalette::ToolTipText, 0x000000}, {QPalette::PlaceholderText, 0x808080},
};

QPalette ClassicGrey() {
  QPalette palette;
  for (const auto& row : Colours) palette.setColor(row.role, QColor(row.colour));
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
    palette.setColor(QPalette::Disabled, role, QColor(0x808080));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(StandardGrey));
  return palette;
}

// The style paints the field of a pick-only list like a button; classic ones look like all other fields.
class ClassicStyle : public QProxyStyle {
 public:
  ClassicStyle() : QProxyStyle(QStyleFactory::create("windows")) {}

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override {
    const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control != CC_ComboBox || !list || list->editable)
      return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionComboBox field(*list), arrow(*list);
    field.palette.setBrush(QPalette::Button, list->palette.brush(QPalette::Base));
    field.subControls.setFlag(SC_ComboBoxArrow, false);
    QProxyStyle::drawComplexControl(control, &field, painter, widget);
    arrow.subControls = SC_ComboBoxArrow;
    QProxyStyle::drawComplexControl(control, &arrow, painter, widget);
  }
};

// A machine with few fonts may offer one of fixed pitch for everything.
void AvoidFixedPitch() {
  QFont font = QApplication::font();
  if (!QFontInfo(font).fixedPitch()) return;
  font.setFamily("Arial");  // or what stands for it
  QApplication::setFont(font);
}

}  // namespace

void ApplyLook() {
  AvoidFixedPitch();
  QFont::insertSubstitution("MS Sans Serif", "Arial");  // the viewer's font by default
  QApplication::setStyle(new ClassicStyle);
  const QPalette palette = ClassicGrey();
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
}

QColor MarkColour(int number) {
  // Far from each other for neighbours, and in lightness too for those who do not see every hue.
  constexpr QRgb strong[] = {0x0072B2, 0xE69F00, 0x009E73, 0xCC79A7, 0xF0E442,
                             0x56B4E9, 0xD55E00, 0x7A4FBF, 0x8DB600, 0x8B6F47};
  const QColor mark(strong[static_cast<std::size_t>(number) % std::size(strong)]);
  const QColor ground = QApplication::palette().color(QPalette::Base);
  const auto mixed = [](int of, int with) { return (of * 11 + with * 9) / 20; };
  return {mixed(mark.red(), ground.red()), mixed(mark.green(), ground.green()),
          mixed(mark.blue(), ground.blue())};
}

QColor ColourOf(SystemColour role) {
  const QPalette palette = QApplication::palette();
  switch (role) {
    case SystemColour::WindowBackground:
      return palette.color(QPalette::Base);
    case SystemColour::MenuBackground:
      return palette.color(QPalette::Button);
    case SystemColour::GreyText:
      return palette.color(QPalette::Disabled, QPalette::WindowText);
    case SystemColour::Warning:
      return QColor(0xFF0000);
    case SystemColour::Refused:
      return QColor(0xFFC8C8);
    case SystemColour::Default:
    case SystemColour::WindowText:
      break;
  }
  return palette.color(QPalette::WindowText);
}

}  // namespace qel
