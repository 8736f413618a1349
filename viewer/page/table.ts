// The lines of a report as a table, of which only what is in view is there and fetched.

import { SlickGrid, type Column as GridColumn } from "slickgrid";
import "slickgrid/dist/styles/css/slick.grid.css";
import { make, tell } from "./elements";
import { server, type Column, type Head, type Line, type Wish } from "./server";

const WINDOW = 400;
const MOST_WINDOWS = 50;
const ROW_HEIGHT = 28;
const WIDEST = 340;
const NARROWEST = 120; // of texts where there is little room
const MOST_KEPT = 0.6; // of the room, for what stays in view
const SIGN = "›";
const INDENT = 1.2; // of the letters' size, for each level
const KEPT = 2; // columns that stay in view: the sign and the report's first

interface Shown { kind: string; leads: boolean; place: number; level: number; cells: string[] }

export interface TableEvents {
  wished(wish: Wish): void;
  followed(place: number): void;
  counted(count: number): void;
  failed(problem: string): void;
}

export class Table {
  private readonly grid: SlickGrid<Shown>;
  private readonly windows = new Map<number, Shown[]>();
  private readonly awaited = new Set<number>();
  private count = 0;
  private generation = 0;
  private columns: GridColumn[] = [];
  private readonly sizes = new ResizeObserver(() => this.grid.resizeCanvas());
  private timer = 0;

  constructor(private readonly holder: HTMLElement, private readonly report: string,
              private readonly head: Head, private wish: Wish, hidden: string[],
              private readonly events: TableEvents) {
    const rows = {
      getLength: () => this.count,
      getItem: (row: number) => this.at(row) as Shown,
      getItemMetadata: (row: number) => {
        const line = this.at(row);
        return { cssClasses: line ? `${line.kind}${line.leads ? " leads" : ""}` : "awaited" };
      },
    };
    this.columns = this.columnsOf(head.columns);
    this.grid = new SlickGrid<Shown>(holder, rows as never, this.shownColumns(hidden), {
      rowHeight: ROW_HEIGHT, headerRowHeight: 34, showHeaderRow: true, enableCellNavigation: true,
      enableColumnReorder: false, enableTextSelectionOnCells: true, multiColumnSort: false,
      explicitInitialization: true, autosizeColsMode: "NOA",
    });
    this.grid.onHeaderCellRendered.subscribe((_event, { node, column }) => {
      node.dataset["id"] = String(column.id);
    });
    this.grid.onHeaderRowCellRendered.subscribe((_event, { node, column }) => this.filterField(node, column));
    this.grid.onScroll.subscribe((_event, { scrollLeft }) => this.keepInView(scrollLeft));
    this.grid.onViewportChanged.subscribe(() => this.fetchSoon());
    this.grid.onSort.subscribe((_event, sorted) => {
      const column = "sortCol" in sorted ? sorted.sortCol : undefined;
      if (column && "sortAsc" in sorted) this.sort(String(column.id), !sorted.sortAsc);
    });
    this.grid.onKeyDown.subscribe((event) => {
      const { key } = event as unknown as KeyboardEvent;
      const active = this.grid.getActiveCell();
      if (key === "Enter" && active) this.follow(active.row);
    });
    this.grid.onClick.subscribe((_event, { row, cell }) => {
      if (this.grid.getColumns()[cell]?.id === SIGN) this.follow(row);
    });
    this.grid.onDblClick.subscribe((_event, { row }) => this.follow(row));
    this.grid.init();
    this.sizes.observe(holder);
    // Tab leads out of the lines, where the grid would lead to the next cell.
    holder.addEventListener("keydown", (event) => { if (event.key === "Tab") event.stopPropagation(); }, true);
    holder.addEventListener("focusin", (event) => {
      const lines = event.target instanceof HTMLElement && !event.target.closest(".slick-pane-header, input");
      if (lines && this.count && !this.grid.getActiveCell()) this.grid.setActiveCell(0, 0);
    });
    this.showSort();
    this.nameParts();
  }

  // The focus is on an element of the grid's own, so what it is on is told.
  private nameParts(): void {
    this.holder.setAttribute("aria-label", "Lines of the report");
    // The lines are one stop of the Tab key, and each filter is one.
    for (const pane of this.holder.querySelectorAll<HTMLElement>(".slick-pane")) pane.tabIndex = -1;
    for (const sink of this.holder.querySelectorAll(":scope > [tabindex='0']")) {
      sink.setAttribute("role", "group");
      sink.setAttribute("aria-label", "Lines of the report: the arrows go through them, Enter leads on");
    }
    this.grid.onActiveCellChanged.subscribe((_event, { row, cell }) => {
      const line = this.at(row), column = this.grid.getColumns()[cell];
      const at = this.head.columns.findIndex((one) => one.name === column?.id);
      this.uncover(row, cell);
      if (line) tell(`${line.cells[0]}; ${this.head.columns[at]?.label ?? "leads further"}: ${line.cells[at] ?? ""}`);
    });
  }

  /** Shows the first lines. */
  async load(): Promise<void> {
    this.setWidths();
    this.grid.resizeCanvas();
    await this.fetch(0);
  }

  sort(column: string, down: boolean): void {
    this.wish = { ...this.wish, sort: column, down };
    this.showSort();
    this.reload();
  }

  show(hidden: string[]): void {
    this.grid.setColumns(this.shownColumns(hidden));
    this.showSort();
  }

  resize(): void { this.grid.resizeCanvas(); }
  destroy(): void {
    this.sizes.disconnect();
    this.grid.destroy();
  }

  private at(row: number): Shown | undefined {
    return this.windows.get(Math.floor(row / WINDOW))?.[row % WINDOW];
  }

  private columnsOf(columns: Column[]): GridColumn[] {
    const text = (cell: number) => (_row: number, _cell: number, _value: unknown,
                                    _column: unknown, line: Shown | undefined) => {
      const span = document.createElement("span");
      span.textContent = line?.cells[cell] ?? "";
      span.title = span.textContent;
      if (cell === 0 && line?.level) span.style.marginLeft = `${line.level * INDENT}em`;
      return span;
    };
    const leads: GridColumn = {
      id: SIGN, name: "", field: SIGN, width: 28, resizable: false, sortable: false, cssClass: "lead",
      headerCssClass: "lead", toolTip: "Leads to the report behind the line",
      formatter: (_row, _cell, _value, _column, line: Shown | undefined) => {
        if (!line?.leads) return "";
        return make("span", { role: "img", "aria-label": "leads further" }, SIGN);
      },
    };
    return [leads, ...columns.map((column, index): GridColumn => ({
      id: column.name, name: column.label, field: column.name, sortable: column.sorts, width: 120, minWidth: 40,
      cssClass: column.numeric ? "number" : "", headerCssClass: column.numeric ? "number" : "",
      formatter: text(index),
    }))];
  }

  private shownColumns(hidden: string[]): GridColumn[] {
    return this.columns.filter((column) => !hidden.includes(String(column.id)))
      .map((column, at) => ({ ...column, alwaysRenderColumn: at < KEPT }));
  }

  // What the first columns say stays in view: they are moved along with what is scrolled.
  private keptWidth(): number {
    const width = this.grid.getColumns().slice(0, KEPT).reduce((sum, column) => sum + (column.width ?? 0), 0);
    return width <= MOST_KEPT * this.holder.clientWidth ? width : 0;
  }

  private keepInView(scrolled: number): void {
    const kept = this.keptWidth() > 0 && scrolled > 0;
    this.holder.classList.toggle("kept", kept);
    this.holder.style.setProperty("--scrolled", `${kept ? scrolled : 0}px`);
  }

  // The grid scrolls a cell into view, where the first columns may lie over it.
  private uncover(row: number, cell: number): void {
    const view = this.holder.querySelector(".slick-viewport-top.slick-viewport-left");
    const box = this.grid.getCellNodeBox(row, cell);
    if (!view || !box || cell < KEPT) return;
    view.scrollLeft = Math.min(view.scrollLeft, Math.max(0, box.left - this.keptWidth()));
    view.dispatchEvent(new Event("scroll")); // told later, the heads would scroll it back
  }

  private filterField(node: HTMLElement, column: GridColumn): void {
    node.replaceChildren();
    const told = this.head.columns.find((one) => one.name === column.id);
    if (!told) return;
    const field = make("input", {
      type: "search", "aria-label": `Filter ${told.label}`, autocomplete: "off",
      placeholder: told.numeric ? "> 1000" : "", value: this.wish.filter[told.name] ?? "",
      oninput: () => {
        clearTimeout(this.timer);
        this.timer = window.setTimeout(() => {
          const filter = { ...this.wish.filter, [told.name]: field.value };
          if (!field.value) delete filter[told.name];
          this.wish = { ...this.wish, filter };
          this.reload();
        }, 250);
      },
      onkeydown: (event) => event.stopPropagation(),
    });
    node.append(field);
  }

  private showSort(): void {
    this.grid.setSortColumns(this.wish.sort
      ? [{ columnId: this.wish.sort, sortAsc: !this.wish.down }] : []);
    for (const header of this.holder.querySelectorAll<HTMLElement>(".slick-header-column")) {
      const sorted = header.dataset["id"] === this.wish.sort;
      header.setAttribute("aria-sort", sorted ? (this.wish.down ? "descending" : "ascending") : "none");
    }
  }

  private reload(): void {
    ++this.generation;
    this.windows.clear();
    this.awaited.clear();
    this.events.wished(this.wish);
    this.holder.setAttribute("aria-busy", "true");
    const generation = this.generation;
    void this.fetch(0).then(() => {
      if (generation !== this.generation) return;
      this.grid.scrollRowIntoView(0);
      this.holder.setAttribute("aria-busy", "false");
    });
  }

  private fetchSoon(): void {
    const { top, bottom } = this.grid.getViewport();
    for (let at = Math.floor(Math.max(0, top - 50) / WINDOW);
         at <= Math.floor((bottom + 50) / WINDOW); ++at) {
      if (at * WINDOW < this.count && !this.windows.has(at)) void this.fetch(at);
    }
  }

  private async fetch(window: number): Promise<void> {
    if (this.awaited.has(window)) return;
    this.awaited.add(window);
    const generation = this.generation;
    try {
      const told = await server.lines(this.report, this.wish, window * WINDOW, WINDOW);
      if (generation !== this.generation) return;
      const oldest = this.windows.keys().next().value;
      if (this.windows.size >= MOST_WINDOWS && oldest !== undefined) this.windows.delete(oldest);
      this.windows.set(window, told.lines.map(([kind, leads, place, level, ...cells]: Line) =>
        ({ kind, leads: leads === 1, place, level, cells })));
      this.count = told.count;
      this.grid.updateRowCount();
      this.grid.invalidate();
      this.events.counted(told.count);
    } catch (failure) {
      if (generation === this.generation) this.events.failed((failure as Error).message);
    } finally {
      if (generation === this.generation) this.awaited.delete(window);
    }
  }

  // As wide as the head and the longest text.
  private setWidths(): void {
    const pen = document.createElement("canvas").getContext("2d");
    if (!pen) return;
    const { fontSize, fontFamily } = getComputedStyle(this.holder);
    pen.font = `600 ${fontSize} ${fontFamily}`;
    this.head.columns.forEach((told, index) => {
      const column = this.columns[index + 1];
      if (!column) return;
      const widest = Math.max(pen.measureText(told.label).width + (told.sorts ? 16 : 0),
                              pen.measureText(told.longest).width + told.indent * INDENT * Number.parseFloat(fontSize));
      const most = told.numeric ? WIDEST
        : Math.min(WIDEST, Math.max(NARROWEST, this.holder.clientWidth / 2));
      column.width = Math.ceil(Math.min(Math.max(widest + 22, 70), most));
    });
    const shown = this.grid.getColumns().map((column) => String(column.id));
    this.grid.setColumns(this.shownColumns(this.columns.map((column) => String(column.id))
      .filter((id) => !shown.includes(id))));
    this.showSort();
  }

  private follow(row: number): void {
    const line = this.at(row);
    if (line?.leads) this.events.followed(line.place);
  }
}
