// A report as a picture.

import {
  BarController, BarElement, CategoryScale, Chart, Legend, LinearScale, LineController,
  LineElement, PointElement, Tooltip, type Scale,
} from "chart.js";
import { make } from "./elements";
import type { Picture } from "./server";

Chart.register(BarController, BarElement, CategoryScale, Legend, LinearScale, LineController,
               LineElement, PointElement, Tooltip);

const LETTER = 7; // pixels of one, about

// Told apart by those who do not see all colours, on light and on dark.
const COLOURS = ["#3b82c4", "#d97706", "#2f9e77"];

function percent(value: number, all: number): string {
  return all ? ` (${(value / all * 100).toFixed(1)} %)` : "";
}

/** The picture, and the same figures as a table for who does not see it. */
export function drawn(picture: Picture, names: (column: string) => string): HTMLElement {
  const canvas = make("canvas", { role: "img", "aria-label": picture.words });
  const style = getComputedStyle(document.body);
  const ink = style.color;
  const lines = style.getPropertyValue("--line");
  const shares = picture.kind === "shares";
  const all = shares
    ? (picture.series[0]?.values ?? []).reduce<number>((sum, one) => sum + (one ?? 0), 0) : 0;
  const figure = (value: number) => value.toLocaleString(undefined, { maximumFractionDigits: 2 });
  const holder = make("div", { class: "drawing" }, canvas);
  if (shares) holder.style.height = `${80 + picture.names.length * 30}px`;
  const scale = { ticks: { color: ink }, grid: { color: lines } };
  const named = { ...scale, ticks: { color: ink, callback(this: Scale, at: string | number) {
    const name = this.getLabelForValue(Number(at));
    const most = Math.max(12, Math.floor(this.chart.width / LETTER / (shares ? 3 : 1)));
    return name.length > most ? `${name.slice(0, most - 1)}…` : name;
  } } };
  new Chart(canvas, {
    type: "bar",
    data: {
      labels: picture.names,
      datasets: picture.series.map((one, index) => ({
        label: names(one.name), data: one.values, backgroundColor: COLOURS[index % COLOURS.length],
      })),
    },
    options: {
      indexAxis: shares ? "y" : "x", responsive: true, maintainAspectRatio: false, animation: false,
      scales: shares ? { x: scale, y: named } : { x: named, y: scale },
      plugins: {
        legend: { display: !shares, labels: { color: ink } },
        tooltip: { callbacks: { label: (item) => {
          const value = Number(shares ? item.parsed.x : item.parsed.y);
          return `${item.dataset.label}: ${figure(value)}${percent(value, all)}`;
        } } },
      },
    },
  });
  const table = make("table", {},
    make("caption", {}, picture.words),
    make("thead", {}, make("tr", {}, make("th", { scope: "col" }, ""),
      ...picture.series.map((one) => make("th", { scope: "col" }, names(one.name))))),
    make("tbody", {}, ...picture.names.map((name, at) => make("tr", {}, make("th", { scope: "row" }, name),
      ...picture.series.map((one) => {
        const value = one.values[at];
        return make("td", {}, value === null || value === undefined ? ""
          : figure(value) + (shares ? percent(value, all) : ""));
      })))));
  return make("figure", {}, make("figcaption", {}, picture.words), holder,
              make("details", {}, make("summary", {}, "The figures"), table));
}
