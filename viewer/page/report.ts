// One report on the page: its progress, its lines, and what can be done with them.

import { addressOf, questionPlace, type Place } from "./address";
import { make, tell } from "./elements";
import { drawn } from "./picture";
import { GONE, server, type Head, type Report, type Road, type Told } from "./server";
import { Table } from "./table";

const DOING: Record<string, string> = {
  FetchingData: "Reading the books", Manipulating: "Writing the lines",
  manipulating: "Writing the lines",
};
const MOST_FAILURES = 2; // seconds apart
const LAST_PERCENT = 60; // the library tells no more before a report is there

/** The library's words for a problem as a sentence. */
function sentence(problem: string): string {
  if (/^[A-Z].*\.$/s.test(problem)) return problem;
  return `The report cannot be shown: ${problem}${/[.!?…]$/.test(problem) ? "" : "."}`;
}

export class ReportPane {
  readonly element = make("section", { class: "report", "aria-label": "The report" });
  private name = "";
  private events?: EventSource;
  private table?: Table;
  private closed = false;
  private shown = false;
  private readonly seen = () => this.listenWhileSeen();

  constructor(private readonly report: Report, private place: Place,
              private readonly go: (place: Place) => void,
              private readonly keep: (place: Place) => void) {}

  async open(): Promise<void> {
    this.events?.close();
    if (this.name) server.close(this.name);
    this.name = "";
    this.shown = false;
    this.table?.destroy();
    delete this.table;
    this.showProgress({ stage: "running", percent: 0, doing: "", problem: "" });
    try {
      this.name = await server.open(this.report.operation, this.place.given);
    } catch (failure) {
      this.showFailure((failure as Error).message);
      return;
    }
    if (this.closed) { server.close(this.name); return; }
    document.addEventListener("visibilitychange", this.seen);
    this.listen();
  }

  // A browser has six connections for all its pages, so one that is not looked at gives its own back.
  private listenWhileSeen(): void {
    if (!this.shown) return;
    this.events?.close();
    if (!document.hidden) this.listen();
  }

  private listen(): void {
    this.events = server.events(this.name);
    this.events.onmessage = (event: MessageEvent<string>) => {
      const told = JSON.parse(event.data) as Told;
      if (told.stage === "running") this.showProgress(told);
      else if (told.stage === "done" && told.report && !this.shown) {
        this.shown = true;
        void this.showReport(told.report);
        if (document.hidden) this.events?.close();
      } else if (told.stage === "failed") this.showFailure(told.problem);
      else if (told.stage === "abandoned") this.showProblem("The report was abandoned.");
    };
    // The browser asks again by itself, unless the server has answered that there is no such report.
    let failures = 0;
    this.events.onopen = () => { failures = 0; };
    this.events.onerror = () => {
      if (this.closed) return;
      if (this.events?.readyState === EventSource.CLOSED) {
        void this.open(); // the server has closed it
      } else if (++failures === MOST_FAILURES) {
        this.events?.close();
        if (this.shown) this.complain(GONE); else this.showProblem(GONE);
      }
    };
  }

  /** Ends it on the server as well. */
  close(): void {
    this.closed = true;
    document.removeEventListener("visibilitychange", this.seen);
    this.events?.close();
    this.table?.destroy();
    if (this.name) server.close(this.name);
  }

  private showProgress(told: Told): void {
    const words = DOING[told.doing] ?? "Asking the books";
    let bar = this.element.querySelector("progress");
    if (!bar) {
      bar = make("progress", { max: "1", "aria-label": "Progress" });
      this.element.replaceChildren(make("div", { class: "progress" },
        make("p", { class: "doing" }, words), bar,
        make("button", { type: "button", class: "abandon", onclick: () => {
          if (this.name) void server.abandon(this.name); else this.close();
        } }, "Abandon")));
      tell("The report is being made.");
    }
    bar.value = Math.min(1, told.percent / LAST_PERCENT);
    this.element.querySelector(".doing")!.textContent = words;
  }

  /** The question is open then, as it may be what has to change. */
  private showFailure(problem: string): void {
    this.showProblem(sentence(problem));
    document.querySelector("main details.ask")?.setAttribute("open", "");
  }

  private showProblem(problem: string): void {
    this.events?.close();
    this.table?.destroy();
    delete this.table;
    this.element.replaceChildren(make("p", { class: "problem", role: "alert" }, problem),
      make("p", {}, make("button", { type: "button", onclick: () => void this.open() }, "Show it again")));
  }

  /** What went wrong with a report that is shown. */
  private complain(problem: string): void {
    const place = this.element.querySelector(".trouble");
    if (place) place.textContent = sentence(problem);
  }

  private async showReport(head: Head): Promise<void> {
    const holder = make("div", { class: "lines" });
    const count = make("p", { class: "count" });
    const notes = head.notes.map((note) => make("p", { class: "note" }, note));
    const warnings = head.warnings.map((warning) => make("p", { class: "warning", role: "status" }, `Look again: ${warning}.`));
    if (!head.whole) notes.unshift(make("p", { class: "note" }, "The report was cut short: lines may be missing."));
    const below = head.below.filter(Boolean).map((line) => make("p", { class: "below" }, line));
    const trouble = make("p", { class: "trouble", role: "alert" });
    const empty = head.lines ? [] : [make("p", { class: "empty" }, "There is nothing to show for this question.")];
    this.element.replaceChildren(...below, ...warnings, this.tools(head), trouble, ...empty, holder, count, ...notes);
    if (head.title) {
      document.title = head.title;
      const heading = document.querySelector("main h1");
      if (heading) heading.textContent = head.title;
    }
    if (!head.columns.length) {
      holder.remove();
      tell("The report is empty.");
      return;
    }
    this.table = new Table(holder, this.name, head, this.place.wish, this.place.hidden, {
      wished: (wish) => this.look({ ...this.place, wish }),
      followed: (place) => void this.follow(place),
      counted: (lines) => {
        const filtered = Object.keys(this.place.wish.filter).length > 0;
        const all = `${head.lines.toLocaleString()} ${head.lines === 1 ? "line" : "lines"}`;
        count.textContent = filtered ? `${lines.toLocaleString()} of ${all}, without totals` : all;
      },
      failed: (problem) => this.complain(problem),
    });
    await this.table.load();
    tell(`The report is there, with ${head.lines} lines.`);
  }

  private look(place: Place): void {
    this.place = place;
    this.keep(place);
    const sort = this.element.querySelector<HTMLSelectElement>("select.sort");
    if (sort) sort.value = place.wish.sort;
  }

  private tools(head: Head): HTMLElement {
    const file = (suffix: string, words: string) => make("button", { type: "button", onclick: () => {
      make("a", { href: server.file(this.name, suffix, this.place.wish, this.place.hidden), download: true }).click();
    } }, words);
    const print = make("button", { type: "button", onclick: () => this.print() }, "Print");
    const tools = make("div", { class: "tools", role: "group", "aria-label": "What to do with the report" },
      ...this.sortTool(head), this.columnTool(head), ...this.pictureTools(head),
      file("xlsx", "Excel"), file("csv", "CSV"), file("pdf", "PDF"), print);
    return tools;
  }

  private sortTool(head: Head): HTMLElement[] {
    const sortable = head.columns.filter((column) => column.sorts);
    if (!sortable.length) return [];
    const by = make("select", { class: "sort", "aria-label": "Sort by" },
      make("option", { value: "" }, "in the report's order"),
      ...sortable.map((column) => make("option", { value: column.name }, `by ${column.label}`)));
    by.value = this.place.wish.sort;
    const down = make("input", { type: "checkbox", checked: this.place.wish.down });
    const sort = () => this.table?.sort(by.value, by.value !== "" && down.checked);
    by.addEventListener("change", sort);
    down.addEventListener("change", sort);
    return [by, make("label", { class: "box" }, down, "greatest first")];
  }

  private columnTool(head: Head): HTMLElement {
    const boxes = head.columns.map((column) => {
      const box = make("input", { type: "checkbox", value: column.name,
                                  checked: !this.place.hidden.includes(column.name) });
      return make("label", { class: "box" }, box, column.label);
    });
    const list = make("div", { class: "columns" }, ...boxes);
    list.addEventListener("change", () => {
      const hidden = [...list.querySelectorAll("input")].filter((box) => !box.checked).map((box) => box.value);
      this.look({ ...this.place, hidden });
      this.table?.show(hidden);
    });
    return make("details", { class: "menu" }, make("summary", {}, "Columns"), list);
  }

  private pictureTools(head: Head): HTMLElement[] {
    return head.pictures.map((words, number) => make("button", { type: "button", "aria-expanded": "false",
      onclick: (event) => void this.togglePicture(number, head, event.currentTarget as HTMLElement),
    }, words));
  }

  private async togglePicture(number: number, head: Head, button: HTMLElement): Promise<void> {
    const there = this.element.querySelector(`figure[data-number="${number}"]`);
    button.setAttribute("aria-expanded", String(!there));
    if (there) {
      there.remove();
    } else {
      try {
        const label = (name: string) =>
          head.columns.find((column) => column.name === name)?.label ?? name;
        const figure = drawn(await server.picture(this.name, number), label);
        figure.dataset["number"] = String(number);
        this.element.querySelector(".lines")?.before(figure);
      } catch (failure) {
        this.complain((failure as Error).message);
      }
    }
    this.table?.resize();
  }

  // The server's own page of the whole report, which has every line and breaks over sheets.
  private print(): void {
    const old = document.getElementById("paper");
    old?.remove();
    const paper = make("iframe", { id: "paper", title: "Print", "aria-hidden": "true" });
    paper.addEventListener("load", () => paper.contentWindow?.print());
    paper.src = server.file(this.name, "html", this.place.wish, this.place.hidden);
    document.body.append(paper);
  }

  private async follow(place: number): Promise<void> {
    let roads: Road[];
    try {
      roads = await server.roads(this.name, place);
    } catch (failure) {
      this.complain((failure as Error).message);
      return;
    }
    const places = roads.map((road) => questionPlace(road.operation, road.arguments));
    if (places.length === 1 && places[0]) { this.go(places[0]); return; }
    const dialog = make("dialog", { class: "roads", "aria-label": "Where to" },
      make("h2", {}, "Where to?"),
      make("ul", {}, ...roads.map((road, at) => make("li", {},
        make("a", { href: addressOf(places[at]!), onclick: () => dialog.close() }, road.words)))),
      make("button", { type: "button", onclick: () => dialog.close() }, "Stay here"));
    dialog.addEventListener("close", () => dialog.remove());
    this.element.append(dialog);
    dialog.showModal();
  }
}
