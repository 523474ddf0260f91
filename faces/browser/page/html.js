// SPDX-License-Identifier: MIT
//
// Elements, menus, and tables to copy.
export function element(name, attributes = {}, content = "") {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
    made.innerHTML = content;
    return made;
}

// Fills a menu with [value, label].
export function options(select, choices) {
    select.replaceChildren(...choices.map(([value, label]) => new Option(label, value)));
}

export const csvOf = (table) => table.map((row) => row.map((cell) => {
    const text = String(cell);
    return /[",\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}).join(",")).join("\r\n") + "\r\n";

export async function copy(text) {
    try {
        await navigator.clipboard.writeText(text);
    } catch {  // a page that may not use the clipboard still may copy a selection
        const area = document.body.appendChild(element("textarea", { class: "unseen", "aria-hidden": "true" }));
        area.value = text;
        area.select();
        document.execCommand("copy");
        area.remove();
    }
}
