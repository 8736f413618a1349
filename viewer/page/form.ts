// The form of a report, made from its arguments.

import { labelled, make } from "./elements";
import { picker } from "./picker";
import type { Argument, List, Report, Year } from "./server";

const isDay = (argument: Argument) =>
  argument.name === "dtFromDate" || argument.name === "dtToDate";

function select(name: string, options: readonly (readonly [string, string])[], chosen: string) {
  const known = options.some(([value]) => value === chosen);
  const all = known || !chosen ? options : [...options, [chosen, chosen] as const];
  return make("select", { name }, ...all.map(([value, words]) =>
    make("option", { value, selected: value === chosen }, words)));
}

/** "2004-04-01" and "2004-04-30" for April, and so on for the months and quarters of a year. */
function periodsOf(year: Year): [string, string][] {
  const periods: [string, string][] = [[`${year.from}/${year.to}`, "the whole year"]];
  const first = new Date(`${year.from}T00:00:00Z`);
  const iso = (day: Date) => day.toISOString().slice(0, 10);
  const part = (from: number, months: number): string => {
    const begin = new Date(Date.UTC(first.getUTCFullYear(), first.getUTCMonth() + from, 1));
    const end = new Date(Date.UTC(first.getUTCFullYear(), first.getUTCMonth() + from + months, 0));
    return `${iso(begin)}/${iso(end)}`;
  };
  const month = (at: number) => new Date(Date.UTC(first.getUTCFullYear(), first.getUTCMonth() + at, 1))
    .toLocaleDateString(undefined, { month: "long", year: "numeric", timeZone: "UTC" });
  for (let at = 0; at < 12; at += 3) periods.push([part(at, 3), `${month(at)} and two months more`]);
  for (let at = 0; at < 12; ++at) periods.push([part(at, 1), month(at)]);
  return periods;
}

/** Year and period, which fill the days and the year's number below them. */
function yearFields(form: HTMLFormElement, years: Year[], given: Record<string, string>) {
  const to = given["dtToDate"] ?? "";
  const current = years.find((one) => String(one.number) === given["bytYearno"]) ??
    years.find((one) => one.from <= to && to <= one.to) ?? years[years.length - 1];
  const year = select("", years.map((one) => [String(one.number), one.name] as const),
                      String(current?.number ?? ""));
  const period = make("select", {});
  const set = (name: string, value: string) => {
    const field = form.elements.namedItem(name);
    if (field instanceof HTMLInputElement) field.value = value;
  };
  const fill = () => {
    const [from, last] = period.value.split("/");
    if (from && last) { set("dtFromDate", from); set("dtToDate", last); }
  };
  const list = () => {
    const chosen = years.find((one) => String(one.number) === year.value);
    if (!chosen) return;
    const asked = `${given["dtFromDate"]}/${given["dtToDate"]}`;
    period.replaceChildren(...[...periodsOf(chosen), ["", "other days"] as [string, string]].map(
      ([value, words]) => make("option", { value, selected: value === asked }, words)));
    set("bytYearno", String(chosen.number));
  };
  year.addEventListener("change", () => { list(); period.selectedIndex = 0; fill(); });
  period.addEventListener("change", fill);
  form.addEventListener("input", (event) => {
    if (event.target instanceof HTMLInputElement && event.target.type === "date") period.value = "";
  });
  list();
  if (given["dtFromDate"] && period.selectedIndex < 0) period.value = "";
  return [labelled("Year", year), labelled("Period", period)];
}

/** The list that a key is picked from, as the other arguments stand. */
function listFor(argument: Argument, given: Record<string, string>): List | undefined {
  return argument.lists.find((one) => !one.argument || one.value === given[one.argument]);
}

function field(argument: Argument, list: List | undefined, text: string): HTMLElement {
  const { name, label, help } = argument;
  if (name === "bytYearno") return make("input", { type: "hidden", name, value: text });
  if (list) {
    const { field: seen, shown } = picker(argument, list.names, text);
    seen.id = `field-${name}`;
    if (argument.needed && !argument.all) seen.required = true;
    return make("div", { class: "field", title: help },
      make("label", { for: seen.id }, list.argument ? list.label : label), shown);
  }
  const [only, ...others] = argument.values;
  if (only && !others.length) return make("input", { type: "hidden", name, value: only.name });
  if (only) {
    return labelled(label, select(name, argument.values.map((one) => [one.name, one.words]), text), help);
  }
  if (argument.type === "boolean") {
    const box = make("input", { type: "checkbox", name, value: "true", checked: text === "true" });
    return make("label", { class: "box", title: help }, box, label);
  }
  if (argument.type === "date" || isDay(argument)) {
    return labelled(label, make("input", { type: "date", name, value: text, required: argument.needed }), help);
  }
  const whole = argument.type === "byte" || argument.type === "int32";
  const input = make("input", whole ? { type: "number", step: "1", name, value: text }
                                    : { type: "text", name, value: text, maxlength: "2000" });
  if (whole && argument.needed) input.required = true;
  return labelled(label, input, help);
}

// What few people set: conditions, signs, and keys without names.
function isSpecial(argument: Argument): boolean {
  if (argument.lists.length) return false;
  if (argument.type === "text" && !argument.values.length) return true;
  return (argument.type === "int32" || argument.type === "byte") && !argument.needed && argument.name !== "bytYearno";
}

/** What a report is asked with at first: its presets, over the last year of the books. */
export function presetsOf(report: Report, years: Year[]): Record<string, string> {
  const year = years[years.length - 1];
  const given: Record<string, string> = {};
  for (const argument of report.arguments) {
    given[argument.name] = argument.preset;
    if (argument.name === "bytYearno") given[argument.name] = String(year?.number ?? 1);
    if (argument.name === "dtFromDate") given[argument.name] = year?.from ?? "";
    if (argument.name === "dtToDate") given[argument.name] = year?.to ?? "";
    if (argument.name === "ValuationMethod") given[argument.name] = "AverageRate";
  }
  return given;
}

/** Whether a question can be asked as it stands. */
export function isComplete(report: Report, given: Record<string, string>): boolean {
  return report.arguments.every((argument) => !argument.needed ||
    (argument.type === "text" && !argument.lists.length) ||
    (given[argument.name] ?? "") !== "");
}

function valuesIn(form: HTMLFormElement, report: Report): Record<string, string> {
  const texts = new FormData(form);
  const given: Record<string, string> = {};
  for (const argument of report.arguments) {
    const text = String(texts.get(argument.name) ?? (argument.type === "boolean" ? "false" : ""));
    if (text !== "" || argument.needed) given[argument.name] = text;
  }
  return given;
}

/** The form, which calls `ask` with the arguments that a person has chosen. */
export function formOf(report: Report, years: Year[], given: Record<string, string>,
                       ask: (given: Record<string, string>) => void): HTMLFormElement {
  const form = make("form", { class: "question", "aria-label": "What to report" });
  const all = { ...presetsOf(report, years), ...given };
  const usual = make("div", { class: "fields" }), special = make("div", { class: "fields" });
  for (const argument of report.arguments) {
    const to = isSpecial(argument) ? special : usual;
    to.append(field(argument, listFor(argument, all), all[argument.name] ?? ""));
  }
  form.addEventListener("change", () => {
    const now = valuesIn(form, report);
    for (const argument of report.arguments) {
      const list = listFor(argument, now);
      if (list === listFor(argument, all)) continue;
      const old = form.querySelector(`[name="${argument.name}"]`)?.closest(".field");
      old?.replaceWith(field(argument, list, argument.all));
    }
    Object.assign(all, now);
  });
  form.append(usual);
  if (special.childElementCount) {
    form.append(make("details", {}, make("summary", {}, "More"), special));
  }
  const days = report.arguments.some(isDay);
  if (years.length && (days || report.arguments.some((one) => one.name === "bytYearno"))) {
    usual.prepend(...yearFields(form, years, all).slice(0, days ? 2 : 1));
  }
  form.append(make("button", { type: "submit", class: "ask" }, "Show the report"));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    ask(valuesIn(form, report));
  });
  return form;
}
