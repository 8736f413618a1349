// What the server is asked, and what it answers.

export interface Value { name: string; words: string }
/** Names that a key is picked from where another argument has this value; with none it always is. */
export interface List { argument: string; value: string; names: string; label: string }
export interface Argument {
  name: string; label: string; help: string; type: string; needed: boolean;
  preset: string; all: string; values: Value[]; lists: List[];
}
export interface Report { operation: string; words: string; help: string; arguments: Argument[] }
export interface Family { words: string; reports: Report[] }
export interface Year { number: number; name: string; from: string; to: string }
export interface Forms { families: Family[]; years: Year[] }
export interface Name { key: number; name: string }
export interface Column { name: string; label: string; numeric: boolean; longest: string; indent: number; sorts: boolean }
export interface Head {
  title: string; below: string[];
  columns: Column[]; lines: number; notes: string[]; warnings: string[]; pictures: string[]; whole: boolean;
}
export interface Told {
  stage: "running" | "done" | "failed" | "abandoned";
  percent: number; doing: string; problem: string; report?: Head;
}
/** Its kind, whether it leads somewhere, its place, how deep it stands, its cells. */
export type Line = [string, number, number, number, ...string[]];
export interface Lines { count: number; from: number; lines: Line[] }
export interface Road { words: string; operation: string; arguments: Record<string, string> }
export interface Picture {
  words: string; kind: "months" | "shares"; names: string[];
  series: { name: string; values: (number | null)[] }[];
}
export interface Wish { sort: string; down: boolean; filter: Record<string, string> }

export const GONE = "The server does not answer. Start it again, and open the address that it prints.";

async function ask<T>(path: string, body?: unknown): Promise<T> {
  const answer = await fetch(path, body === undefined ? {} : {
    method: "POST", headers: { "Content-Type": "application/json" }, body: JSON.stringify(body),
  }).catch(() => { throw new Error(GONE); });
  const told = await answer.json();
  if (!answer.ok) throw new Error(told.problem);
  return told as T;
}

export function wishAsText(wish: Wish): string {
  const texts = new URLSearchParams();
  if (wish.sort) texts.set("sort", wish.sort);
  if (wish.down) texts.set("down", "1");
  for (const [column, text] of Object.entries(wish.filter)) texts.set(`f.${column}`, text);
  return texts.toString();
}

export const server = {
  forms: () => ask<Forms>("/api/forms"),
  names: (list: string, text: string) =>
    ask<Name[]>(`/api/names/${list}?text=${encodeURIComponent(text)}`),
  nameOf: async (list: string, key: string) =>
    (await ask<{ name: string }>(`/api/names/${list}?key=${key}`)).name,
  open: async (operation: string, given: Record<string, string>) =>
    (await ask<{ report: string }>("/api/reports", { operation, arguments: given })).report,
  events: (report: string) => new EventSource(`/api/reports/${report}/events`),
  abandon: (report: string) => ask<object>(`/api/reports/${report}/abandon`, {}),
  close: (report: string) => navigator.sendBeacon(`/api/reports/${report}/close`),
  lines: (report: string, wish: Wish, from: number, count: number) =>
    ask<Lines>(`/api/reports/${report}/lines?from=${from}&count=${count}&${wishAsText(wish)}`),
  roads: (report: string, place: number) =>
    ask<Road[]>(`/api/reports/${report}/roads?place=${place}`),
  picture: (report: string, number: number) =>
    ask<Picture>(`/api/reports/${report}/picture?number=${number}`),
  file: (report: string, suffix: string, wish: Wish, hidden: string[]) =>
    `/api/reports/${report}/report.${suffix}?${wishAsText(wish)}&hidden=${hidden.join()}`,
};
