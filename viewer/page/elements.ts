// Elements of the page, made in one call.

type Attributes = { [name: string]: string | boolean | ((event: Event) => void) };

/** An element with attributes, handlers ("on...") and content; false leaves an attribute out. */
export function make<K extends keyof HTMLElementTagNameMap>(
  tag: K, attributes: Attributes = {}, ...content: (Node | string)[]
): HTMLElementTagNameMap[K] {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (typeof value === "function") element.addEventListener(name.slice(2), value);
    else if (value !== false) element.setAttribute(name, value === true ? "" : value);
  }
  element.append(...content);
  return element;
}

/** The element of an id that stands in the page from the start. */
export function byId(id: string): HTMLElement {
  const found = document.getElementById(id);
  if (!found) throw new Error(`no element ${id}`);
  return found;
}

/** Tells what happened to whoever sees or hears the page. */
export function tell(sentence: string): void {
  byId("told").textContent = sentence;
}

let labels = 0;
/** A field with its label over it. */
export function labelled(label: string, field: HTMLElement, help = ""): HTMLElement {
  field.id ||= `field${++labels}`;
  return make("div", { class: "field", title: help }, make("label", { for: field.id }, label), field);
}
