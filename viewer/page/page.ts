// The page: the list of reports, the form of one, and the report itself.

import { addressOf, placeOf, questionPlace, type Place } from "./address";
import { byId, make, tell } from "./elements";
import { formOf, isComplete, presetsOf } from "./form";
import { ReportPane } from "./report";
import { server, type Forms, type Report } from "./server";
import "./page.css"; // behind that of the table, which it changes

const LOOKS = "looks";
let forms: Forms = { families: [], years: [] };
let pane: ReportPane | undefined;

function findReport(operation: string): Report | undefined {
  for (const family of forms.families) {
    const found = family.reports.find((one) => one.operation === operation);
    if (found) return found;
  }
  return undefined;
}

/** The list of reports whose words, family or name hold all words of the search. */
function showList(): void {
  const words = (byId("search") as HTMLInputElement).value.toLowerCase().split(/\s+/).filter(Boolean);
  const current = placeOf(location.href).operation;
  byId("families").replaceChildren(...forms.families.flatMap((family) => {
    const fitting = family.reports.filter((report) => {
      const text = `${family.words} ${report.words} ${report.help} ${report.operation}`.toLowerCase();
      return words.every((word) => text.includes(word));
    });
    if (!fitting.length) return [];
    return [make("h2", {}, family.words), make("ul", {}, ...fitting.map((report) =>
      make("li", {}, make("a", {
        href: `/report/${report.operation}`, title: report.help,
        ...(report.operation === current ? { "aria-current": "page" } : {}),
      }, report.words))))];
  }));
  if (!byId("families").childElementCount) {
    byId("families").append(make("p", {}, "No report has these words."));
  }
}

function showStart(unknown: boolean): void {
  document.title = "Reports of the books";
  byId("main").replaceChildren(make("h1", {}, "Which report?"),
    ...(unknown ? [make("p", { class: "problem", role: "alert" }, "There is no report at this address.")] : []),
    make("p", {}, "Choose one in the list, or search for a word of it. " +
      `The books have ${forms.years.length === 1 ? "the year" : "the years"} ` +
      `${forms.years.map((year) => year.name).join(", ") || "no movements"}.`));
}

function showReport(report: Report, place: Place): void {
  document.title = report.words;
  const asked = Object.keys(place.given).length > 0;
  const complete = isComplete(report, { ...presetsOf(report, forms.years), ...place.given });
  const form = formOf(report, forms.years, place.given,
                      (given) => go(questionPlace(report.operation, given)));
  const question = make("details", { class: "ask", open: !asked || !complete },
    make("summary", {}, "What to report"), form);
  byId("main").replaceChildren(make("h1", {}, report.words), question);
  if (!asked || !complete) return;
  pane = new ReportPane(report, place, go, keep);
  byId("main").append(pane.element);
  void pane.open();
}

function show(): void {
  pane?.close();
  pane = undefined;
  tell("");
  const place = placeOf(location.href);
  const report = findReport(place.operation);
  showList();
  byId("families").querySelector("[aria-current]")?.scrollIntoView({ block: "nearest" });
  document.body.classList.remove("listing");
  document.body.classList.toggle("starting", !report);
  byId("menu").setAttribute("aria-expanded", "false");
  if (report) showReport(report, place);
  else showStart(place.operation !== "");
}

/** Another report, or the same with another question. */
function go(place: Place): void {
  history.pushState(null, "", addressOf(place));
  show();
  byId("main").focus();
}

/** The same report looked at in another way. */
function keep(place: Place): void {
  history.replaceState(null, "", addressOf(place));
}

function setLooks(): void {
  const select = byId("looks") as HTMLSelectElement;
  const apply = () => {
    if (select.value) document.documentElement.dataset["looks"] = select.value;
    else delete document.documentElement.dataset["looks"];
  };
  select.value = localStorage.getItem(LOOKS) ?? "";
  apply();
  select.addEventListener("change", () => {
    localStorage.setItem(LOOKS, select.value);
    apply();
  });
}

function listen(): void {
  byId("search").addEventListener("input", showList);
  byId("menu").addEventListener("click", () => {
    const open = document.body.classList.toggle("listing");
    byId("menu").setAttribute("aria-expanded", String(open));
    if (open) byId("search").focus();
  });
  document.addEventListener("click", (event) => {
    const link = event.target instanceof Element ? event.target.closest("a") : null;
    if (!link || event.ctrlKey || event.metaKey || event.shiftKey) return;
    const href = link.getAttribute("href") ?? "";
    if (href !== "/" && !href.startsWith("/report/")) return;
    event.preventDefault();
    go(placeOf(href));
  });
  window.addEventListener("popstate", show);
  window.addEventListener("pagehide", () => pane?.close());
  window.addEventListener("pageshow", (event) => { if (event.persisted) show(); });
}

async function start(): Promise<void> {
  setLooks();
  try {
    forms = await server.forms();
  } catch (failure) {
    byId("main").replaceChildren(make("p", { class: "problem", role: "alert" }, (failure as Error).message));
    return;
  }
  listen();
  show();
}

void start();
