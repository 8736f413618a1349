// The address holds the whole question: the report, its arguments, and how it is looked at.

import type { Wish } from "./server";

export interface Place {
  operation: string; // "" is the start
  given: Record<string, string>;
  wish: Wish;
  hidden: string[]; // columns
}

// What is no argument of a report begins so.
const SIGN = "~";

export function placeOf(address: string): Place {
  const url = new URL(address, location.origin);
  const place: Place = {
    operation: /^\/report\/(\w+)$/.exec(url.pathname)?.[1] ?? "",
    given: {}, wish: { sort: "", down: false, filter: {} }, hidden: [],
  };
  for (const [name, text] of url.searchParams) {
    if (!name.startsWith(SIGN)) place.given[name] = text;
    else if (name === "~sort") place.wish.sort = text;
    else if (name === "~down") place.wish.down = text === "1";
    else if (name === "~hidden") place.hidden = text.split(",");
    else if (name.startsWith("~f.")) place.wish.filter[name.slice(3)] = text;
  }
  return place;
}

export function addressOf(place: Place): string {
  if (!place.operation) return "/";
  const texts = new URLSearchParams(place.given);
  if (place.wish.sort) texts.set("~sort", place.wish.sort);
  if (place.wish.down) texts.set("~down", "1");
  for (const [column, text] of Object.entries(place.wish.filter)) {
    if (text) texts.set(`~f.${column}`, text);
  }
  if (place.hidden.length) texts.set("~hidden", place.hidden.join(","));
  const text = texts.toString();
  return `/report/${place.operation}${text ? "?" + text : ""}`;
}

/** A report that is looked at anew. */
export function questionPlace(operation: string, given: Record<string, string>): Place {
  return { operation, given, wish: { sort: "", down: false, filter: {} }, hidden: [] };
}
