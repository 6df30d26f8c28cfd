// Charts as pictures within a page: plain series in, SVG out. Every bar says in words what it stands for, and
// the picture as a whole has a title and a description. Colours are those of the page's style.
//
// All texts are Windows-1252 and are escaped here. Bars of nothing, and of less, are left out.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/Drawing.h"
#include "reports/ChartScale.h"

namespace qel {

// `Title` and `Caption` stand around the drawing.
struct ChartTexts {
  std::string Title, Caption, Description;
  double Width;  // of the drawing
};

// One row of upright bars; its bars are those of the other panels' of the same place.
struct ChartPanel {
  std::string Title;
  const char* Style;  // class of its bars: "time", "cost"
  ChartScale Scale;
  std::vector<double> Values;
  std::vector<std::string> Words;  // what each bar says
  std::vector<int> Targets;        // what each leads to; may be left out
};

// A word below a bar.
struct ChartTick {
  std::size_t Bar;
  std::string Label;
};

// Panels one below the other over one axis. They must have equally many bars, one at least.
Drawing BarChart(const ChartTexts& texts, const std::vector<ChartPanel>& panels,
                 const std::vector<ChartTick>& ticks);

struct ChartDay {
  double Value;
  std::string Words;
  std::string Mark;  // above its week; empty for most
  int Target = 0;
};

// Days by weeks: a column for each week, a row for each of its days, shaded by value. `firstRow` is the row
// of the first day, from 0; `rows` names all seven.
struct ChartCalendar {
  const char* Style;  // class of its days: "time", "cost"
  std::size_t FirstRow;
  std::vector<std::string> Rows;
  std::vector<ChartDay> Days;  // one at least
};

Drawing CalendarChart(const ChartTexts& texts, const ChartCalendar& calendar,
                      const std::function<std::string(double)>& shown);

struct StackPart {
  std::string Name;
  const char* Style;  // class of its bars: "dialup", "service" (hatched), "data" (dotted)
};

struct Stack {
  std::string Name;
  std::vector<double> Values;  // by part
  std::string Total;
  int Target = 0;
};

// One lying bar for each stack, divided into its parts, and a legend of them.
Drawing StackedBars(const ChartTexts& texts, const std::vector<StackPart>& parts,
                    const std::vector<Stack>& stacks, const ChartScale& scale);

}  // namespace qel
