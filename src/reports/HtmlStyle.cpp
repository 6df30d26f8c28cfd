#include "reports/HtmlStyle.h"

namespace qel {

// The three colours of costs differ in brightness as well as in hue, and two of them carry a pattern, so that
// they are told apart without colour.
const char PageStyle[] = R"css(:root {
  color-scheme: light;
  --paper: #fbfaf7; --panel: #fff; --ink: #1d2630; --quiet: #5d6873; --line: #e1e0da; --strong: #b9bcbd;
  --time: #5a7186; --cost: #8d5a80; --dialup: #1f4e79; --service: #e0a030; --data: #7fb7a4; --over: #1d2630; 
  --mark: #7a4b00; --marked: #fff4dc;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    color-scheme: dark;
    --paper: #14181d; --panel: #1b2127; --ink: #e6e8ea; --quiet: #9aa5b0; --line: #2c343c; --strong: #4b5660;
    --time: #93a9bc; --cost: #c796bb; --dialup: #4f8fc4; --service: #e6b04f; --data: #a9d9c9; --mark: #f3cf8a; --marked: #33290f;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0 auto; padding: 3rem 1.5rem 4rem; max-width: 68rem; background: var(--paper); color: var(--ink);
  font: 16px/1.5 system-ui, "Segoe UI", Roboto, "Helvetica Neue", "Noto Sans", sans-serif;
}
header { margin-bottom: 2rem; }
.brand { margin: 0; color: var(--quiet); font-size: .8rem; font-weight: 600; letter-spacing: .14em; }
h1 { margin: .1rem 0 .6rem; font-size: 2rem; font-weight: 650; line-height: 1.2; letter-spacing: -.01em; }
header p { margin: 0; color: var(--quiet); }
header .period { color: var(--ink); font-size: 1.05rem; }
.warning { margin: 0 0 2rem; padding: .6rem 1rem; border-left: 4px solid; background: var(--marked);
  color: var(--mark); }
.figures { display: grid; grid-template-columns: repeat(auto-fit, minmax(11rem, 1fr)); gap: 1rem;
  margin: 0 0 2.5rem; }
.figures dl { margin: 0; padding: 1rem 1.25rem; border: 1px solid var(--line); border-radius: .5rem;
  background: var(--panel); }
.figures dt { color: var(--quiet); font-size: .85rem; }
.figures dd { margin: .1rem 0 0; font-size: 1.6rem; font-weight: 600; line-height: 1.25;
  font-variant-numeric: tabular-nums; }
.wide { overflow-x: auto; }
section, figure { margin: 0 0 2.75rem; }
table { width: 100%; border-collapse: collapse; font-size: .92rem; font-variant-numeric: tabular-nums; }
caption, h2 { margin: 0; padding: 0 0 .5rem; font-size: 1.15rem; font-weight: 650; line-height: 1.4;
  text-align: left; }
th, td { padding: .4rem .6rem; border-bottom: 1px solid var(--line); text-align: right; vertical-align: top;
  white-space: nowrap; }
th { font-weight: 400; }
th:first-child { padding-left: 0; text-align: left; }
th:last-child, td:last-child { padding-right: 0; }
.t { text-align: left; }
td.t:last-child { min-width: 10rem; white-space: normal; }
thead th { border-bottom: 2px solid var(--strong); color: var(--quiet); font-size: .9em; font-weight: 600;
  vertical-align: bottom; }
tbody tr:hover { background: var(--panel); }
tfoot th, tfoot td { border-top: 2px solid var(--strong); border-bottom: 0; font-weight: 650; }
.connections table { font-size: .78rem; }
.connections th:not(:first-child), .connections td:not(:last-child) { padding-right: .35rem; padding-left: .35rem; }
.statistics table { width: auto; min-width: 24rem; }
figcaption { margin-bottom: .75rem; color: var(--quiet); font-size: .85rem; }
figcaption h2 { padding: 0; color: var(--ink); }
figure svg { display: block; width: 100%; min-width: 40rem; height: auto; }
figure details { margin-top: .5rem; font-size: .85rem; }
summary { color: var(--quiet); cursor: pointer; }
details table { width: auto; min-width: 24rem; margin-top: .5rem; }
details caption { font-size: 1em; }
svg text { fill: var(--quiet); font-size: 12px; font-variant-numeric: tabular-nums; }
svg .name { fill: var(--ink); font-size: 13px; }
svg .end { text-anchor: end; }
svg .middle { text-anchor: middle; }
svg .grid { stroke: var(--line); }
svg .axis { stroke: var(--strong); }
svg .time { fill: var(--time); }
svg .cost { fill: var(--cost); }
svg .service { fill: var(--service); }
svg .dialup { fill: var(--dialup); }
svg .data { fill: var(--data); }
svg .shade1 { fill-opacity: .25; }
svg .shade2 { fill-opacity: .5; }
svg .shade3 { fill-opacity: .75; }
svg .nothing { fill: var(--line); }
svg .hatch { stroke: var(--over); stroke-opacity: .35; stroke-width: 1.2; }
svg .dot { fill: var(--over); fill-opacity: .45; }
svg .bar:hover { opacity: .75; }
@media print {
  :root { --paper: #fff; --panel: #fff; --ink: #000; --quiet: #444; --line: #ccc; --strong: #777; --marked: #fff; }
  @page { margin: 15mm; }
  body { max-width: none; padding: 0; font-size: 10pt; }
  .wide { overflow: visible; }
  .figures { grid-template-columns: repeat(4, 1fr); }
  .figures dd { font-size: 1.25rem; }
  figure, .figures dl, tr { break-inside: avoid; }
  figure svg { min-width: 0; }
  figure details { display: none; }
  .connections table { font-size: 6.5pt; }
  thead { display: table-header-group; }
  tfoot { display: table-row-group; }
}
)css";

}  // namespace qel
