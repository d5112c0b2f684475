#include "tools/report/PageAssets.h"

namespace tool::page {

// Neither has a "<" or a "&": readers of XML and of HTML would not agree on what they mean there.

void addStyle(HtmlWriter& html) {
    html.asset("style", R"css(
:root {
  color-scheme: light dark;
  --paper: #f6f7f9; --card: #ffffff; --ink: #1b1f24; --quiet: #5b6570; --line: #d9dee4;
  --ok: #1f7a4d; --warning: #a86200; --bad: #b3261e; --unknown: #7a8490;
  --zone: #f3dcae; --beyond: #f2b8b0; --track: #e4eaef;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #14171b; --card: #1d2228; --ink: #e6e9ed; --quiet: #9aa5b1; --line: #333b44;
    --ok: #5cc792; --warning: #f0b14a; --bad: #ff8a7d; --unknown: #8b96a2;
    --zone: #5a4620; --beyond: #6a2f2a; --track: #2b333b;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0 auto; padding: 1.5rem clamp(.9rem, 3vw, 2.5rem) 4rem; max-width: 90rem;
  background: var(--paper); color: var(--ink);
  font: 15px/1.45 system-ui, "Segoe UI", Roboto, "Noto Sans", "Liberation Sans", sans-serif;
}
h1 { margin: 0; font-size: 1.5rem; line-height: 1.2; overflow-wrap: anywhere; }
h2 { margin: 0 0 .75rem; font-size: 1.2rem; }
h3 { margin: 1.1rem 0 .4rem; font-size: 1rem; }
p { margin: .15rem 0; overflow-wrap: anywhere; }
ul, ol { margin: 0; padding: 0; list-style: none; }
section { margin-top: 2.5rem; }
.quiet { color: var(--quiet); font-size: .87rem; }
.ok { --tone: var(--ok); }
.warning, .minor { --tone: var(--warning); }
.major, .critical, .fatal { --tone: var(--bad); }
.unknown { --tone: var(--unknown); }
.state { color: var(--tone, var(--ink)); font-weight: 600; }
.verdict {
  margin: .9rem 0 0; padding: .6rem .9rem; border-radius: .4rem; font-weight: 600;
  background: var(--card); border: 1px solid var(--line); border-left: .4rem solid var(--tone);
}
.nodes, .elements { display: grid; gap: .8rem; grid-template-columns: repeat(auto-fit, minmax(min(15rem, 100%), 1fr)); }
.nodes { margin-top: .9rem; }
.elements { grid-template-columns: repeat(auto-fit, minmax(min(20rem, 100%), 1fr)); }
.card {
  padding: .7rem .9rem; border-radius: .4rem; background: var(--card);
  border: 1px solid var(--line); border-top: .25rem solid var(--tone);
}
.card h2, .card h3 { margin: 0 0 .2rem; font-size: 1.05rem; overflow-wrap: anywhere; }
.card .log { margin-top: .5rem; }
.card .log li { display: block; }
.card .log .node, .card .log .state { display: none; }
.card .log time, .card .log .text { display: block; }
.columns { display: grid; gap: 0 2.5rem; grid-template-columns: repeat(auto-fit, minmax(min(24rem, 100%), 1fr)); }
.columns h3 { margin-top: 0; }
.sensors { margin-bottom: 1.5rem; }
.sensors li {
  display: grid; gap: .1rem .8rem; padding: .4rem 0; border-top: 1px solid var(--line);
  grid-template: "name reading" auto "bar bar" auto "limits limits" auto / 1fr auto;
}
.name { grid-area: name; overflow-wrap: anywhere; min-width: 0; }
.reading { grid-area: reading; text-align: right; font-variant-numeric: tabular-nums; font-weight: 600; }
.warning .reading, .minor .reading, .major .reading, .critical .reading, .fatal .reading { color: var(--tone); }
.limits { grid-area: limits; font-variant-numeric: tabular-nums; }
.bar { grid-area: bar; width: 100%; }
svg.bar { height: .8rem; border-radius: .2rem; display: block; }
.track { fill: var(--track); }
.zone { fill: var(--zone); }
.beyond { fill: var(--beyond); }
.value { fill: var(--tone); }
.mark { fill: var(--ink); }
.log li {
  position: relative; display: grid; gap: 0 .8rem; padding: .25rem 0 .25rem 1.1rem;
  grid-template-columns: minmax(4.2rem, auto) minmax(0, 1fr) auto;
}
.log li::before {
  content: ""; position: absolute; left: -.3rem; top: .65rem; width: .65rem; height: .65rem;
  border-radius: 50%; background: var(--tone); 
}
.log { margin-left: .4rem; }
.log.line { border-left: 2px solid var(--line); }
.log.line li::before { left: calc(-.325rem - 1px); }
.log .node { grid-column: 1; grid-row: 1; align-self: baseline; }
.log time { grid-column: 1; grid-row: 2; }
.log time { font-variant-numeric: tabular-nums; color: var(--quiet); }
.log .text { grid-column: 2; grid-row: 1 / span 2; overflow-wrap: anywhere; }
.log .state { grid-column: 3; text-align: right; font-size: .87rem; }
.tree .tree { margin-left: .45rem; padding-left: .9rem; border-left: 1px solid var(--line); }
.tree summary { cursor: pointer; padding: .12rem 0; overflow-wrap: anywhere; }
.tree .leaf { display: block; padding: .12rem 0 .12rem 1.05rem; overflow-wrap: anywhere; }
.none { color: var(--quiet); }
.tree table { margin: .3rem 0 .8rem 1rem; border-collapse: collapse; font-size: .87rem; }
.tree th { text-align: left; font-weight: 400; color: var(--quiet); vertical-align: top; padding: .1rem 1rem .1rem 0; }
.tree td { padding: .1rem 0; overflow-wrap: anywhere; }
code { font-family: ui-monospace, "DejaVu Sans Mono", Consolas, monospace; font-size: .87rem; }
input[type=search] {
  width: min(28rem, 100%); margin: 0 .8rem .8rem 0; padding: .45rem .7rem; font: inherit;
  color: inherit; background: var(--card); border: 1px solid var(--quiet); border-radius: .4rem;
}
[hidden] { display: none; }
@media (max-width: 40rem) {
  .log li { grid-template-columns: minmax(0, 1fr) auto; }
  .log .node, .log time, .log .text { grid-column: 1; grid-row: auto; }
  .log .state { grid-column: 2; grid-row: 1; }
  .tree th, .tree td { display: block; }
  .tree .tree { margin-left: .2rem; padding-left: .6rem; }
}
@media print {
  :root {
    --paper: #ffffff; --card: #ffffff; --ink: #000000; --quiet: #444444; --line: #bbbbbb;
    --ok: #1f7a4d; --warning: #a86200; --bad: #b3261e; --unknown: #7a8490;
    --zone: #f3dcae; --beyond: #f2b8b0; --track: #e4eaef;
  }
  body { font-size: 10pt; padding: 0; print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  input, output { display: none; }
  li, tr { break-inside: avoid; }
  .class { break-inside: auto; }
  h2, h3 { break-after: avoid; }
}
)css");
}

void addScript(HtmlWriter& html) {
    html.asset("script", R"js(
(function () {
  "use strict";
  var section = document.getElementById("classes");
  var box = document.createElement("input");
  var found = document.createElement("output");
  box.type = "search";
  box.placeholder = "Find a class, a path or a value";
  box.setAttribute("aria-label", box.placeholder);
  found.className = "quiet";
  section.querySelector("h2").after(box, found);

  var items = new Map();
  section.querySelectorAll("li").forEach(function (item) {
    var isInstance = item.classList.contains("instance");
    var details = item.querySelector(":scope > details");
    var label = isInstance ? item : item.querySelector(":scope > .leaf, :scope > details > summary > span");
    items.set(item, {
      isInstance: isInstance,
      details: details,
      wasOpen: details !== null ? details.open : false,
      text: label.textContent.toLowerCase(),
      parts: Array.from(item.querySelectorAll(":scope > details > .tree > li"))
    });
  });

  function filter(item, words, isShown) {
    var known = items.get(item);
    var fits = words.every(function (word) { return known.text.includes(word); });
    var shown = fits ? 1 : 0;
    known.parts.forEach(function (part) { shown += filter(part, words, isShown ? true : fits); });
    item.hidden = isShown ? false : shown === 0;
    if (known.details !== null) {
      if (words.length === 0) {
        known.details.open = known.wasOpen;
      } else if (!known.isInstance) {
        known.details.open = shown !== (fits ? 1 : 0);
      }
    }
    return shown;
  }

  box.addEventListener("input", function () {
    var words = box.value.toLowerCase().split(" ").filter(function (word) { return word !== ""; });
    var shown = 0;
    section.querySelectorAll(":scope > .tree > li").forEach(function (item) {
      shown += filter(item, words, false);
    });
    found.textContent = words.length === 0 ? "" : shown + " found";
  });
})();
)js");
}

}  // namespace tool::page
