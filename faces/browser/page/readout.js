// SPDX-License-Identifier: MIT
//
// The whole state under the pointer, beside it for the eye and in a sentence for the ear.
import { meaningOf, properties, typeset } from "./catalogue.js";
import { element } from "./html.js";
import { text } from "./numbers.js";

const $ = (id) => document.getElementById(id);
const spoken = ["p", "T", "v", "h", "s", "x"];
const quiet = 350;  // milliseconds before a sentence is said, so that a held key says one

export class Readout {
    constructor(page) {
        this.page = page;
        this.box = $("readout");
        this.head = element("p");
        this.reason = element("span");
        const list = element("dl");
        this.rows = properties.map(({ symbol }) => {
            const cells = [element("dt", {}, typeset(symbol)), element("dd"), element("dd")];
            list.append(...cells);
            return { symbol, cells };
        });
        this.box.append(this.head, list, this.reason);
    }

    #words(state, symbol) {
        const { units } = this.page.model;
        return { number: text(units.shown(symbol, state.of(symbol)), 6), unit: units.label(symbol) };
    }

    show(state, [x], { left, right, top }) {
        this.head.textContent = state.ok ? `${state.phase}, region ${state.region}` : "No state";
        this.reason.textContent = state.ok ? "" : meaningOf(state.code);
        for (const { symbol, cells } of this.rows) {
            const has = state.ok && !Number.isNaN(state.of(symbol));
            for (const cell of cells) cell.hidden = !has;
            if (!has) continue;
            const { number, unit } = this.#words(state, symbol);
            cells[1].textContent = number;
            cells[2].textContent = unit;
        }
        const isLeft = x > (left + right) / 2;
        this.box.hidden = false;
        Object.assign(this.box.style, { top: `${top + 4}px`, left: isLeft ? `${left + 8}px` : "auto", right: isLeft ? "auto" : "18px" });
    }
    hide() {
        this.box.hidden = true;
    }

    say(state) {
        clearTimeout(this.timer);
        this.timer = setTimeout(() => {
            $("chart-said").textContent = state.ok
                ? `${state.phase}: ` + spoken.filter((symbol) => !Number.isNaN(state.of(symbol))).map((symbol) => {
                    const { number, unit } = this.#words(state, symbol);
                    return `${symbol} ${number} ${unit}`;
                }).join(", ")
                : `No state: ${meaningOf(state.code)}`;
        }, quiet);
    }
}
