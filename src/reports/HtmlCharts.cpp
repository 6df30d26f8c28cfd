#include "reports/HtmlCharts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "reports/HtmlPage.h"

namespace qel {

namespace {

// All lengths are units of the drawing.
constexpr double LetterWidth = 7;
constexpr double PanelHeight = 120, PanelTitle = 30, TickSpace = 26;
constexpr double WidestBar = 36, BarShare = 0.78;  // of the room that a bar has
constexpr double LegendHeight = 34, StackRow = 32, StackBar = 18;
constexpr double DayRoom = 17, DaySide = 15, MarkSpace = 22, BandSpace = 14;
constexpr std::size_t WeekDays = 7;
constexpr int Shades = 4;
constexpr std::size_t LongestName = 24;  // characters of a stack's name

std::string Number(double number) {
  char text[400];
  std::snprintf(text, sizeof text, "%.1f", number);
  return text;
}

std::string Attribute(const char* name, double number) {
  return std::string(" ") + name + "=\"" + Number(number) + "\"";
}

Drawing Begin(const ChartTexts& texts) {
  return {.Heading = texts.Title,
          .Caption = texts.Caption,
          .Width = texts.Width,
          .Height = 0,
          .Markup = "",
          .Places = {}};
}

std::string Line(const char* style, double x1, double y1, double x2, double y2) {
  return std::string("<line class=\"") + style + "\"" + Attribute("x1", x1) + Attribute("y1", y1) +
         Attribute("x2", x2) + Attribute("y2", y2) + "/>\n";
}

std::string Words(const char* style, double x, double y, const std::string& text) {
  return std::string("<text class=\"") + style + "\"" + Attribute("x", x) + Attribute("y", y) + ">" +
         HtmlText(text) + "</text>\n";
}

struct Box {
  double X, Y, Width, Height;
};

std::string BoxAttributes(const Box& box) {
  return Attribute("x", box.X) + Attribute("y", box.Y) + Attribute("width", box.Width) +
         Attribute("height", box.Height);
}

std::string BarOf(const std::string& style, const Box& box, const std::string& words) {
  return "<rect class=\"bar " + style + "\"" + BoxAttributes(box) + "><title>" + HtmlText(words) +
         "</title></rect>\n";
}

DrawnPlace PlaceOf(const Box& box, const std::string& words, int target) {
  return {box.X, box.Y, box.Width, box.Height, words, target};
}

void Finish(Drawing& drawing, const ChartTexts& texts, double height) {
  drawing.Markup = "<svg role=\"img\" viewBox=\"0 0 " + Number(drawing.Width) + " " + Number(height) +
                   "\">\n<title>" + HtmlText(texts.Title) + "</title>\n<desc>" + HtmlText(texts.Description) +
                   "</desc>\n" + drawing.Markup + "</svg>\n";
  drawing.Height = height;
}

// The pattern of a part, drawn over its bar.
std::string Pattern(std::string_view style, const Box& box) {
  if (style != "service" && style != "data") return "";
  return "<rect pointer-events=\"none\" fill=\"url(#over-" + std::string(style) + ")\"" + BoxAttributes(box) +
         "/>\n";
}

constexpr char PatternDefinitions[] =
    "<defs>\n<pattern id=\"over-service\" width=\"6\" height=\"6\" patternUnits=\"userSpaceOnUse\" "
    "patternTransform=\"rotate(45)\"><line class=\"hatch\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"6\"/></pattern>\n"
    "<pattern id=\"over-data\" width=\"6\" height=\"6\" patternUnits=\"userSpaceOnUse\">"
    "<circle class=\"dot\" cx=\"3\" cy=\"3\" r=\"1\"/></pattern>\n</defs>\n";

double WidthOf(const std::string& text) { return static_cast<double>(text.size()) * LetterWidth; }

double WidestLabel(const ChartScale& scale) {
  double widest = 0;
  for (int i = 0; i <= scale.Steps; ++i) widest = std::max(widest, WidthOf(scale.Label(i * scale.Step)));
  return widest;
}

// Where the bars stand.
struct Slots {
  Slots(double left, double right, std::size_t count)
      : Left(left), Right(right), Room((right - left) / static_cast<double>(count)) {}
  double Middle(std::size_t bar) const { return Left + (static_cast<double>(bar) + 0.5) * Room; }
  double BarWidth() const { return std::min(WidestBar, Room * BarShare); }
  double Left, Right, Room;
};

std::string TickText(const std::string& label, double x, double y, double right) {
  const double textX = std::min(x, right - WidthOf(label) / 2);
  return Line("axis", x, y, x, y + 5) + Words("middle", textX, y + 19, label);
}

void DrawPanel(Drawing& drawing, const ChartPanel& panel, const Slots& slots, double top) {
  const double floor = top + PanelTitle + PanelHeight;
  std::string& text = drawing.Markup;
  text += Words("name", 0, top + 13, panel.Title);
  for (int i = 0; i <= panel.Scale.Steps; ++i) {
    const double y = floor - PanelHeight * i / panel.Scale.Steps;
    text += Line(i == 0 ? "axis" : "grid", slots.Left, y, slots.Right, y);
    text += Words("end", slots.Left - 8, y + 4, panel.Scale.Label(i * panel.Scale.Step));
  }
  for (std::size_t i = 0; i < panel.Values.size(); ++i) {
    const double height = PanelHeight * panel.Values[i] / panel.Scale.Top();
    if (!(height > 0)) continue;
    const double width = slots.BarWidth();
    const Box box{slots.Middle(i) - width / 2, floor - height, width, height};
    text += BarOf(panel.Style, box, panel.Words[i]);
    drawing.Places.push_back(PlaceOf(box, panel.Words[i], panel.Targets.empty() ? 0 : panel.Targets[i]));
  }
}

// The darkness of a day: 0 for nothing, then by quarters of the highest.
int ShadeOf(double value, double highest) {
  return value > 0 ? std::clamp(static_cast<int>(std::ceil(Shades * value / highest)), 1, Shades) : 0;
}

std::string DayText(const std::string& style, const Box& box, const ChartDay& day, int shade) {
  if (shade == 0) return "<rect class=\"nothing\"" + BoxAttributes(box) + "/>\n";
  return BarOf(style + " shade" + std::to_string(shade), box, day.Words);
}

std::string RowNames(const std::vector<std::string>& names, double top) {
  std::string text;
  for (std::size_t row = 0; row < names.size(); ++row)
    text += Words("start", 0, top + static_cast<double>(row) * DayRoom + 12, names[row]);
  return text;
}

// What each shade goes up to.
std::string ShadeLegend(const char* style, double left, double top, double highest,
                        const std::function<std::string(double)>& shown) {
  std::string text;
  for (int shade = 1; shade <= Shades; ++shade) {
    const std::string words = "to " + shown(highest * shade / Shades);
    text += DayText(style, {left, top, DaySide, DaySide}, {0, words, ""}, shade) +
            Words("name", left + DayRoom + 4, top + 12, words);
    left += DayRoom + 4 + WidthOf(words) + 24;
  }
  return text;
}

std::string Legend(const std::vector<StackPart>& parts, double left) {
  std::string text;
  for (const auto& part : parts) {
    const Box swatch{left, 2, 14, 14};
    text += std::string("<rect class=\"") + part.Style + "\"" + BoxAttributes(swatch) + "/>\n" +
            Pattern(part.Style, swatch) + Words("name", left + 21, 13.5, part.Name);
    left += 21 + WidthOf(part.Name) + 28;
  }
  return text;
}

std::string ShownName(const Stack& stack) {
  const bool isLong = stack.Name.size() > LongestName;
  return isLong ? stack.Name.substr(0, LongestName - 3) + "..." : stack.Name;
}

void DrawStack(Drawing& drawing, const Stack& stack, const std::vector<StackPart>& parts,
               const ChartScale& scale, const Box& room) {
  std::string& text = drawing.Markup;
  text += Words("name", 0, room.Y + room.Height - 4, ShownName(stack));
  double x = room.X;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const double width = room.Width * stack.Values[i] / scale.Top();
    if (!(width > 0)) continue;
    // A seam of the paper's colour, where there is room for it.
    const Box box{x, room.Y, std::max(width - 1, width / 2), room.Height};
    const std::string words = stack.Name + ", " + parts[i].Name + ": " + scale.Label(stack.Values[i]);
    text += BarOf(parts[i].Style, box, words) + Pattern(parts[i].Style, box);
    drawing.Places.push_back(PlaceOf(box, words, stack.Target));
    x += width;
  }
  text += Words("name", x + 8, room.Y + room.Height - 4, stack.Total);
}

}  // namespace

Drawing BarChart(const ChartTexts& texts, const std::vector<ChartPanel>& panels,
                 const std::vector<ChartTick>& ticks) {
  double left = 0;
  for (const auto& panel : panels) left = std::max(left, WidestLabel(panel.Scale) + 12);
  const Slots slots(left, texts.Width, panels.front().Values.size());
  Drawing drawing = Begin(texts);
  double top = 0;
  for (const auto& panel : panels) {
    DrawPanel(drawing, panel, slots, top);
    top += PanelTitle + PanelHeight + 14;
  }
  const double floor = top - 14;
  for (const auto& tick : ticks)
    drawing.Markup += TickText(tick.Label, slots.Middle(tick.Bar), floor, texts.Width);
  Finish(drawing, texts, floor + TickSpace);
  return drawing;
}

Drawing CalendarChart(const ChartTexts& texts, const ChartCalendar& calendar,
                      const std::function<std::string(double)>& shown) {
  double left = 0, highest = 0;
  for (const auto& name : calendar.Rows) left = std::max(left, WidthOf(name) + 8);
  for (const auto& day : calendar.Days) highest = std::max(highest, day.Value);
  const auto weeksPerBand = static_cast<std::size_t>((texts.Width - left) / DayRoom);
  const double bandHeight = MarkSpace + static_cast<double>(WeekDays) * DayRoom + BandSpace;
  Drawing drawing = Begin(texts);
  std::string& text = drawing.Markup;
  std::size_t band = 0;
  for (std::size_t i = 0; i < calendar.Days.size(); ++i) {
    const ChartDay& day = calendar.Days[i];
    const std::size_t place = i + calendar.FirstRow, row = place % WeekDays, week = place / WeekDays;
    band = week / weeksPerBand;
    const double x = left + static_cast<double>(week % weeksPerBand) * DayRoom;
    const double top = static_cast<double>(band) * bandHeight + MarkSpace;
    const bool beginsBand = i == 0 || (row == 0 && week % weeksPerBand == 0);
    if (beginsBand) text += RowNames(calendar.Rows, top);
    if (!day.Mark.empty())
      text += Words("start", std::min(x, texts.Width - WidthOf(day.Mark)), top - 6, day.Mark);
    const Box box{x, top + static_cast<double>(row) * DayRoom, DaySide, DaySide};
    text += DayText(calendar.Style, box, day, ShadeOf(day.Value, highest));
    drawing.Places.push_back(PlaceOf(box, day.Words, day.Target));
  }
  const double floor = static_cast<double>(band + 1) * bandHeight;
  text += ShadeLegend(calendar.Style, left, floor, highest, shown);
  Finish(drawing, texts, floor + LegendHeight - 8);
  return drawing;
}

Drawing StackedBars(const ChartTexts& texts, const std::vector<StackPart>& parts,
                    const std::vector<Stack>& stacks, const ChartScale& scale) {
  double left = 0, right = WidthOf(scale.Label(scale.Top())) / 2;
  for (const auto& stack : stacks) {
    left = std::max(left, WidthOf(ShownName(stack)) + 20);
    right = std::max(right, WidthOf(stack.Total) + 16);  // behind a bar of full length
  }
  const double width = texts.Width - left - right;
  const double floor = LegendHeight + StackRow * static_cast<double>(stacks.size());
  Drawing drawing = Begin(texts);
  std::string& text = drawing.Markup;
  text = PatternDefinitions + Legend(parts, left);
  for (int i = 0; i <= scale.Steps; ++i) {
    const double x = left + width * i / scale.Steps;
    text += Line(i == 0 ? "axis" : "grid", x, LegendHeight - 4, x, floor);
    text += Words("middle", x, floor + 18, scale.Label(i * scale.Step));
  }
  double y = LegendHeight + (StackRow - StackBar) / 2 - 2;
  for (const auto& stack : stacks) {
    DrawStack(drawing, stack, parts, scale, {left, y, width, StackBar});
    y += StackRow;
  }
  Finish(drawing, texts, floor + TickSpace);
  return drawing;
}

}  // namespace qel
