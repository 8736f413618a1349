// The viewer in a real browser: node browse.mjs PROGRAM BOOKS FOLDER [--pictures].
// A report of each family is opened, compared with its rowset, sorted, filtered, followed and
// exported; then what holds for all pages. FOLDER takes what is downloaded. With the program that
// scripts/view builds, that script is tried as well.

import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { mkdirSync, readFileSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import { fileURLToPath } from "node:url";

const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");
const { chromium } = createRequire(path.join(root, "viewer/page/"))("playwright-core");
const [program, books, folder] = process.argv.slice(2, 5).map((one) => path.resolve(one));
const flag = process.argv[5];
const pictures = flag === "--pictures" ? path.join(root, "docs/pictures") : "";

const YEAR = { bytYearno: "2", dtFromDate: "2004-04-01", dtToDate: "2005-03-31" };
const PERIOD = { dtFromDate: "2004-04-01", dtToDate: "2005-03-31" };
const VALUED = { ...YEAR, ValuationMethod: "AverageRate", blnDetailed: "false", blnAltUom: "false",
                 sngScale: "1" };
// One of each family: what it is asked with, and where its first line leads.
const REPORTS = [
  { operation: "StockDetails_Itemwise", given: VALUED, leads: true },
  { operation: "StockDetails_Categorywise", given: { ...VALUED, lngAny_Id1: "-1", blnOnlyItems: "false" }, leads: true },
  { operation: "Monthly_Itemwise", given: { ...YEAR, ValuationMethod: "FifoRate", lngAny_Id1: "25",
    blnAltUom: "false", sngScale: "1" }, leads: true },
  { operation: "FreeQuantity_Itemwise_Initial", given: { ...PERIOD, blnDetailed: "true" }, leads: true },
  { operation: "Doc_Initial", given: { ...PERIOD, lngVouchertype_id: "10" }, leads: true },
  { operation: "HypoReport", given: { ...YEAR, blnDetailed: "false", sngScale: "1", Hypo_id: "0",
    btTypeOfReport: "0" }, leads: true },
  { operation: "BillWiseQuery", given: { ...YEAR, blnDetailed: "false" }, leads: true,
    rowset: "recitem=select Item_id as ItemNew_id, ItemName from Items1" },
  { operation: "POrderTextQuery", given: { strFilter: "Desr1.YearNo = 2" }, leads: false },
];

const addressOf = (operation, given) => `/report/${operation}?${new URLSearchParams(given)}`;

/** The rowset as the command line gives it. */
function rowsetOf({ operation, given, rowset }) {
  const words = ["run", operation, "--books", books, "--format", "json", "--locale", "en_IN", "--quiet",
    ...Object.entries(given).map(([name, value]) => `${name}=${value}`)];
  if (rowset) words.push("--rowset", rowset);
  return JSON.parse(execFileSync(program, words, { maxBuffer: 1 << 30 }).toString());
}

const serve = (file) => served(program, ["serve", "--books", file, "--locale", "en_IN"]);

async function served(command, words) {
  const server = spawn(command, words, { cwd: folder });
  const address = await new Promise((found, failed) => {
    let said = "";
    server.stdout.on("data", (data) => {
      said += data;
      const match = /http:\S+/.exec(said);
      if (match) found(match[0]);
    });
    server.on("exit", () => failed(new Error("the server has ended")));
  });
  const ended = new Promise((end) => server.on("exit", (_status, signal) => end(signal)));
  return { address, origin: new URL(address).origin,
           end: () => { server.kill("SIGINT"); return ended; } };
}

/** The rows in view, top to bottom: { kind, cells by column }. */
const rowsOf = (page) => page.evaluate(() => {
  const names = [...document.querySelectorAll(".slick-header-column")].map((one) => one.dataset.id);
  const top = (row) => row.getBoundingClientRect().top;
  return [...document.querySelectorAll(".lines .slick-row")].sort((a, b) => top(a) - top(b)).map((row) => ({
    kind: ["line", "group", "rule", "total", "spacer"].find((kind) => row.classList.contains(kind)),
    leads: row.classList.contains("leads"),
    cells: Object.fromEntries([...row.querySelectorAll(".slick-cell")].map((cell) =>
      [names[Number(/\bl(\d+)\b/.exec(cell.className)[1])], cell.textContent])),
  }));
});

async function ready(page) {
  await page.waitForSelector(".count:not(:empty), .problem");
  const problem = await page.$eval(".problem", (one) => one.textContent).catch(() => "");
  assert.equal(problem, "");
}

/** A line's shown cells are those of a row of the rowset, which the page may show in the order of a tree. */
function compare(rows, rowset) {
  const names = rowset.columns.map((column) => column.name);
  const isText = (column) => column >= 0 && [8, 200].includes(rowset.columns[column].type);
  const shows = (cells, row) => Object.entries(cells).every(([name, text]) => {
    const column = names.indexOf(name);
    const value = isText(column) ? row[column] ?? "" : "";
    return value === "" || value === text; // an empty cell may show what another column tells
  });
  const lines = rows.filter((row) => row.kind === "line");
  assert.ok(lines.length > 0, "no line is shown");
  for (const { cells } of lines) {
    assert.ok(Object.keys(cells).some((name) => isText(names.indexOf(name))), Object.keys(cells).join());
    assert.ok(rowset.rows.some((row) => row.some(Boolean) && names.some((name, column) =>
      isText(column) && row[column] && cells[name] === row[column]) && shows(cells, row)), JSON.stringify(cells));
  }
}

async function sorted(page, rowset) {
  const by = page.locator("select.sort");
  if (!(await by.count())) return;
  const column = await by.locator("option").last().getAttribute("value");
  const total = (await rowsOf(page)).length;
  await by.selectOption(column);
  await page.waitForFunction((name) => document.querySelector(`[data-id="${name}"]`)
    ?.getAttribute("aria-sort") === "ascending", column);
  await page.waitForSelector(".lines[aria-busy=false]");
  assert.ok(page.url().includes(`sort=${column}`), page.url());
  const rows = await rowsOf(page);
  assert.equal(rows.length, total);
  const twin = rowset.columns.findIndex((one) => one.name === `${column}Sort`);
  assert.ok(twin >= 0, column);
}

async function filtered(page) {
  const first = (await rowsOf(page)).find((row) => row.kind === "line" || row.kind === "group");
  const [name, text] = Object.entries(first.cells).find(([, cell]) => /[a-z]{3}/i.test(cell)) ?? [];
  if (!name) return;
  await page.getByLabel(new RegExp("^Filter ")).nth(Object.keys(first.cells).indexOf(name) - 1).fill(text.trim().slice(0, 12));
  await page.waitForFunction(() => document.querySelector(".count")?.textContent?.includes("without totals"));
  await page.waitForSelector(".lines[aria-busy=false]");
  const [shown] = await rowsOf(page); // those below it stay with it
  assert.ok(shown.cells[name].toLowerCase().includes(text.trim().slice(0, 12).toLowerCase()), shown.cells[name]);
}

async function exported(page) {
  const rows = await rowsOf(page);
  const [csv] = await Promise.all([page.waitForEvent("download"), page.getByRole("button", { name: "CSV" }).click()]);
  const file = path.join(folder, "report.csv");
  await csv.saveAs(file);
  const lines = readFileSync(file, "utf8").replace("\ufeff", "").trimEnd().split("\r\n");
  const heads = await page.$$eval(".slick-header-column", (all) => all.map((one) => one.textContent).filter(Boolean));
  assert.equal(lines[0].replaceAll('"', ""), heads.join());
  const shown = rows.filter((row) => row.kind !== "rule" && row.kind !== "spacer");
  const [first] = Object.values(shown[0].cells).filter((text) => /^[a-z]/i.test(text));
  assert.ok(lines[1].replaceAll('"', "").includes(first ?? ""), `${lines[1]} lacks ${first}`);
  const [sheet] = await Promise.all([page.waitForEvent("download"), page.getByRole("button", { name: "Excel" }).click()]);
  const workbook = path.join(folder, "report.xlsx");
  await sheet.saveAs(workbook);
  assert.equal(readFileSync(workbook).subarray(0, 2).toString(), "PK");
  const [pages] = await Promise.all([page.waitForEvent("download"), page.getByRole("button", { name: "PDF" }).click()]);
  const print = path.join(folder, "report.pdf");
  await pages.saveAs(print);
  assert.equal(readFileSync(print).subarray(0, 5).toString(), "%PDF-");
}

/** By the keyboard alone: down to a line that leads somewhere, Enter, and the first road. */
async function followed(page) {
  const before = page.url();
  const row = (await rowsOf(page)).findIndex((one) => one.leads);
  assert.ok(row >= 0, "no line leads anywhere");
  await page.getByRole("button", { name: "Print" }).focus();
  await page.keyboard.press("Tab");
  for (let at = 0; at < row; ++at) await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await page.waitForFunction((old) => location.href !== old || document.querySelector("dialog[open]"), before);
  if (await page.locator("dialog[open]").count()) await page.locator("dialog[open] a").first().click();
  await page.waitForFunction((old) => location.href !== old, before);
  await page.waitForSelector(".report .count, .report p");
  assert.equal(await page.locator(".problem").count(), 0);
  await page.goBack();
  await ready(page);
}

/** Fields and buttons that a screen reader has no name for. */
const nameless = (page) => page.evaluate(() => [...document.querySelectorAll("button, input, select, a[href]")]
  .filter((one) => one.type !== "hidden" && one.offsetParent !== null)
  .filter((one) => !(one.getAttribute("aria-label") || one.textContent.trim() || one.labels?.length))
  .map((one) => one.outerHTML));

async function wholePages(browser, server, checks) {
  const context = await browser.newContext({ viewport: { width: 1360, height: 850 }, acceptDownloads: true });
  const page = await context.newPage();
  page.on("request", (request) => assert.ok(request.url().startsWith(server.origin), request.url()));
  page.on("pageerror", (error) => { throw error; });
  page.on("console", (told) => {
    if (told.type() === "error") throw new Error(told.text());
  });
  await page.goto(server.address);
  await page.waitForSelector("nav li a");
  assert.ok(!page.url().includes("token"), page.url());
  await checks(page, context);
  await context.close();
}

async function families(page, server) {
  await page.setViewportSize({ width: 4000, height: 850 }); // a table draws the columns in view alone
  for (const report of REPORTS) {
    console.log(`  ${report.operation}`);
    const rowset = rowsetOf(report);
    await page.goto(server.origin + addressOf(report.operation, report.given));
    await ready(page);
    assert.deepEqual(await nameless(page), []);
    compare(await rowsOf(page), rowset);
    if (report.leads) await followed(page);
    await exported(page);
    await sorted(page, rowset);
    await filtered(page);
  }
}

async function asked(page, server) {
  await page.goto(server.origin);
  await page.getByLabel("Search").fill("month item");
  await page.getByRole("link", { name: "Stock of an item month by month" }).click();
  const field = page.getByRole("combobox", { name: "Item" });
  await field.fill("tyre");
  await page.locator("[role=option]").first().waitFor();
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await page.getByLabel("Year", { exact: true }).selectOption({ label: "2004-05" });
  await page.getByRole("button", { name: "Show the report" }).click();
  await ready(page);
  assert.match(page.url(), /dtFromDate=2004-04-01&dtToDate=2005-03-31/);
  assert.ok((await rowsOf(page)).length >= 13);
}

/** The first minute with nothing but the sources: one command, an address, a report, Ctrl-C. */
async function begun(browser) {
  const server = await served(path.join(root, "scripts/view"), [path.basename(books)]);
  await wholePages(browser, server, async (page) => {
    await page.getByRole("link", { name: "Documents by party" }).click();
    await page.getByRole("button", { name: "Show the report" }).click();
    await page.waitForSelector(".count:not(:empty)");
  });
  assert.equal(await server.end(), "SIGINT");
}

/** What a key is picked from follows from another field. */
async function askedByGroup(page, server) {
  await page.goto(server.origin + "/report/CustomerItemwise_Analysis");
  await page.getByLabel("By", { exact: true }).selectOption({ label: "Party group" });
  const field = page.getByRole("combobox", { name: "Party group" });
  await field.fill("a");
  await page.locator("[role=option]").first().waitFor();
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await page.getByRole("button", { name: "Show the report" }).click();
  await ready(page);
  assert.match(page.url(), /reptype=rtMovement_GroupAnalysis.*lngId=\d+/);
}

async function narrow(page, server) {
  await page.setViewportSize({ width: 360, height: 740 });
  await page.goto(server.origin + addressOf(REPORTS[0].operation, REPORTS[0].given));
  await ready(page);
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= 360), "wider than the screen");
  await page.getByRole("button", { name: "Reports" }).click();
  assert.ok(await page.getByRole("link", { name: "Ledgers", exact: true }).isVisible());
  await page.goto(server.origin);
  const [words, list] = [page.getByText("Which report?"), page.getByLabel("Search")];
  await list.waitFor();
  assert.ok((await words.boundingBox()).y < (await list.boundingBox()).y, "the list is not below the question");
  assert.ok((await page.locator("header").boundingBox()).height < 50, "the head is broken into lines");
}

/** What a finger has to meet is large enough for one. */
async function touched(browser, server) {
  const context = await browser.newContext({ viewport: { width: 360, height: 740 }, hasTouch: true, isMobile: true });
  const page = await context.newPage();
  await page.goto(server.address);
  await page.goto(server.origin + addressOf(REPORTS[0].operation, REPORTS[0].given));
  await ready(page);
  for (const control of await page.locator("main :is(button, .menu > summary, select):visible").all()) {
    const { height } = await control.boundingBox();
    assert.ok(height >= 44, `${await control.textContent()} is ${height} pixels high`);
  }
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= 360), "wider than the screen");
  await context.close();
}

/** From the last tool to the first filter: the lines are one stop, and what is on is seen. */
async function tabbed(page, server) {
  await page.setViewportSize({ width: 1000, height: 700 });
  await page.goto(server.origin + addressOf(REPORTS[1].operation, REPORTS[1].given));
  await ready(page);
  await page.getByRole("button", { name: "Print" }).focus();
  await page.keyboard.press("Tab");
  await page.waitForSelector(".slick-cell.active");
  await page.keyboard.press("Tab");
  const at = await page.evaluate(() => document.activeElement.getAttribute("aria-label"));
  assert.match(at, /^Filter /);
}

/** What is scrolled leaves its first column in view, and the active cell beside it. */
async function keptInView(page, server) {
  await page.setViewportSize({ width: 1000, height: 700 });
  await page.goto(server.origin + addressOf(REPORTS[1].operation, REPORTS[1].given));
  await ready(page);
  await page.getByRole("button", { name: "Print" }).focus();
  await page.keyboard.press("Tab");
  for (let at = 0; at < 12; ++at) await page.keyboard.press("ArrowRight");
  for (let at = 0; at < 7; ++at) await page.keyboard.press("ArrowLeft");
  await page.waitForSelector(".lines.kept");
  await page.waitForFunction(() => { // the scrolling is told a moment later
    const [view, first, head, active] = [".lines", ".slick-row .l1", ".slick-header-column:nth-child(2)",
      ".slick-cell.active"].map((one) => document.querySelector(one).getBoundingClientRect());
    return first.left >= view.left && first.right < view.right && head.left === first.left &&
      active.left >= first.right - 1;
  });
}

/** More pages than a browser has connections: those that are not looked at leave them to the others. */
async function manyPages(context, server) {
  const pages = [];
  const look = (page, seen) => page.evaluate((hidden) => {
    Object.defineProperty(document, "hidden", { value: hidden, configurable: true });
    document.dispatchEvent(new Event("visibilitychange"));
  }, !seen);
  for (let at = 0; at < 8; ++at) {
    const page = await context.newPage();
    await page.goto(server.origin + addressOf(REPORTS[4].operation, REPORTS[4].given));
    await ready(page);
    await look(page, false);
    pages.push(page);
  }
  await look(pages[0], true);
  await pages[0].locator("select.sort").selectOption("Amount");
  await pages[0].waitForSelector(".lines[aria-busy=false]");
  for (const page of pages) {
    await page.goto("about:blank"); // closed by itself, it would not tell that it goes
    await page.close();
  }
}

/** What there is to say where there are no lines, and where there is no report. */
async function toldInSentences(page, server) {
  await page.goto(server.origin + addressOf("Doc_Initial", { lngVouchertype_id: "10",
    dtFromDate: "1999-04-01", dtToDate: "1999-04-02" }));
  await ready(page);
  assert.equal(await page.locator(".empty").textContent(), "There is nothing to show for this question.");
  await page.goto(server.origin + addressOf("POrderTextQuery", { strFilter: "Nonsense = 2" }));
  const problem = await page.locator(".problem").textContent();
  assert.match(problem, /^The report cannot be shown: .*unknown column "nonsense"/);
  await page.getByRole("button", { name: "Show it again" }).click();
  await page.waitForSelector(".problem");
}

/** A hundred thousand lines and more: each place that is jumped to has its lines at once. */
async function scrolled(page, server) {
  await page.goto(server.origin + addressOf("POrderTextQuery", { strFilter: "Desr1.YearNo > 0" }));
  await ready(page);
  const lines = Number((await page.locator(".count").textContent()).replace(/\D/g, ""));
  assert.ok(lines > 100_000, `${lines} lines`);
  const slowest = await page.evaluate(async () => {
    const view = document.querySelector(".lines .slick-viewport-top.slick-viewport-left");
    const frame = () => new Promise(requestAnimationFrame);
    let most = 0;
    for (const part of [0.5, 0.999, 0.25, 0.75, 0]) {
      const began = performance.now();
      view.scrollTop = part * view.scrollHeight;
      do await frame();
      while (document.querySelector(".lines .slick-row.awaited") || !document.querySelector(".lines .slick-row"));
      most = Math.max(most, performance.now() - began);
    }
    return most;
  });
  console.log(`  ${lines} lines: there ${Math.round(slowest)} ms after a jump at the latest`);
  assert.ok(slowest < 1000, `${slowest} ms after a jump`);
}

function makeLargeBooks() {
  const file = path.join(folder, "large.db");
  const making = spawn(program, ["books", "sample", file, "--movements", "150000"], { stdio: "ignore" });
  return new Promise((made, failed) => making.on("exit", (status) => {
    if (status === 0) made(file); else failed(new Error(`no large books: status ${status}`));
  }));
}

/** A report that would take hours, abandoned by its button: how long it takes until the page says so. */
async function abandoned(page, server) {
  const pairs = "(select count(*) from GodownItem1 a, GodownItem1 b where a.Qty > b.Rate) > 0";
  await page.goto(server.origin + addressOf("POrderTextQuery", { strFilter: `Desr1.YearNo > 0 and ${pairs}` }));
  await page.waitForSelector("button.abandon");
  const took = await page.evaluate(() => new Promise((found) => {
    const began = performance.now();
    const look = () => document.querySelector(".problem") ? found(performance.now() - began) : requestAnimationFrame(look);
    document.querySelector("button.abandon").click();
    look();
  }));
  assert.equal(await page.locator(".problem").textContent(), "The report was abandoned.");
  console.log(`  abandoned after ${Math.round(took)} ms`);
  assert.ok(took < 500, `abandoned after ${took} ms`);
}

async function draw(page, server) {
  mkdirSync(pictures, { recursive: true });
  const shot = (name) => page.screenshot({ path: path.join(pictures, `viewer-${name}.png`) });
  await page.setViewportSize({ width: 1280, height: 800 });
  await page.goto(server.origin + "/report/StockDetails_Itemwise");
  await page.waitForSelector(".question");
  await shot("form");
  await page.goto(server.origin + addressOf("StockDetails_Categorywise",
    { ...VALUED, lngAny_Id1: "-1", blnOnlyItems: "false", blnDetailed: "true" }));
  await ready(page);
  await shot("stock");
  await page.goto(server.origin + addressOf("Monthly_Itemwise", REPORTS[2].given));
  await ready(page);
  await page.getByRole("button", { name: "Quantity by month" }).click();
  await page.waitForSelector("figure canvas");
  await page.waitForTimeout(300);
  await shot("months");
  await page.goto(server.origin + addressOf("Doc_Initial", REPORTS[4].given));
  await ready(page);
  await page.getByRole("button", { name: "Amount by party" }).click();
  await page.waitForTimeout(300);
  await shot("parties");
  await page.emulateMedia({ colorScheme: "dark" });
  await page.goto(server.origin + addressOf("BillWiseQuery", REPORTS[6].given));
  await ready(page);
  await shot("bills-dark");
  await page.emulateMedia({ colorScheme: "light" });
  await page.setViewportSize({ width: 360, height: 740 });
  await page.goto(server.origin + addressOf("StockDetails_Itemwise", VALUED));
  await ready(page);
  await shot("narrow");
}

const browser = await chromium.launch({
  executablePath: "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync"],
});
const largeBooks = makeLargeBooks(); // meanwhile
const server = await serve(books);
try {
  if (program === path.join(root, "build/stolvane")) await begun(browser);
  await wholePages(browser, server, async (page, context) => {
    await families(page, server);
    await asked(page, server);
    await askedByGroup(page, server);
    await keptInView(page, server);
    await manyPages(context, server);
    await toldInSentences(page, server);
    await narrow(page, server);
    await tabbed(page, server);
  });
  await touched(browser, server);
  const large = await serve(await largeBooks);
  await wholePages(browser, large, async (page) => {
    await abandoned(page, large);
    await scrolled(page, large);
  });
  large.end();
  if (pictures) await wholePages(browser, server, (page) => draw(page, server));
} finally {
  server.end();
  await browser.close();
}
console.log("The viewer's pages are right.");
