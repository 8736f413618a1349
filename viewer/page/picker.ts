// A field in which a name of the books is picked; what it holds is the name's key.

import { make } from "./elements";
import { server, type Name } from "./server";

let lists = 0;

/** The hidden input with the key, and what is seen. `all` is the key that stands for all. */
export function picker(argument: { name: string; all: string }, names: string, key: string):
    { field: HTMLInputElement; shown: HTMLElement } {
  const held = make("input", { type: "hidden", name: argument.name, value: key });
  const list = make("ul", { role: "listbox", id: `names${++lists}`, hidden: true });
  const field = make("input", {
    type: "text", role: "combobox", autocomplete: "off", "aria-autocomplete": "list",
    "aria-expanded": "false", "aria-controls": list.id,
    placeholder: argument.all ? "all" : "type a part of the name",
  });
  let found: Name[] = [];
  let marked = -1;
  let asked = 0;

  const close = () => {
    list.hidden = true;
    field.setAttribute("aria-expanded", "false");
    field.removeAttribute("aria-activedescendant");
  };
  const pick = (name: Name) => {
    held.value = String(name.key);
    field.value = name.name;
    field.setCustomValidity("");
    close();
  };
  const mark = (at: number) => {
    marked = Math.max(0, Math.min(at, found.length - 1));
    [...list.children].forEach((one, index) => {
      one.setAttribute("aria-selected", String(index === marked));
      if (index === marked) {
        field.setAttribute("aria-activedescendant", one.id);
        one.scrollIntoView({ block: "nearest" });
      }
    });
  };
  const search = async () => {
    const mine = ++asked;
    let none = "No such name";
    const fitting = await server.names(names, field.value.trim()).catch((failure: Error) => {
      none = failure.message;
      return [];
    });
    if (mine !== asked || document.activeElement !== field) return;
    found = fitting;
    marked = -1;
    list.replaceChildren(...found.map((name, index) => make("li", {
      role: "option", id: `${list.id}-${index}`, "aria-selected": "false",
      onmousedown: (event) => { event.preventDefault(); pick(name); },
    }, name.name)));
    if (!found.length) list.append(make("li", { class: "none" }, none));
    list.hidden = false;
    field.setAttribute("aria-expanded", "true");
  };

  field.addEventListener("input", () => {
    held.value = field.value.trim() === "" ? argument.all : "";
    field.setCustomValidity(held.value === "" && field.value ? "Pick one of the names" : "");
    void search();
  });
  field.addEventListener("focus", () => void search());
  field.addEventListener("blur", close);
  field.addEventListener("keydown", (event) => {
    if (event.key === "ArrowDown") { mark(marked + 1); event.preventDefault(); }
    if (event.key === "ArrowUp") { mark(marked - 1); event.preventDefault(); }
    if (event.key === "Escape") close();
    const name = found[marked];
    if (event.key === "Enter" && !list.hidden && name) { pick(name); event.preventDefault(); }
  });
  if (key && key !== argument.all) {
    void server.nameOf(names, key).catch(() => "").then((name) => { field.value = name || key; });
  }
  return { field, shown: make("div", { class: "picker" }, field, list, held) };
}
