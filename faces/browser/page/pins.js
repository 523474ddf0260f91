// SPDX-License-Identifier: MIT
//
// The pinned states as a table, and the difference of two of them.
import { differenceFromBase, nameOf, properties, propertyOf, typeset, unitOfDifference } from "./catalogue.js";
import { csvOf, element, options } from "./html.js";
import { aligned } from "./numbers.js";
import { State } from "./water.js";

const $ = (id) => document.getElementById(id);
const columns = ["p", "T", "v", "h", "s", "x"];
const constants = ["p", "T", "v", "h", "s"];

export class Pins {
    constructor(page) {
        this.page = page;
        this.states = [];
        options($("constant"), [["", "nothing"], ...constants.map((symbol) => [symbol, `${symbol}, ${propertyOf(symbol).quantity}`])]);
        $("constant").addEventListener("change", (event) => page.change({ constant: event.target.value }));
        $("clear-pins").addEventListener("click", () => page.change({ pins: [] }));
        $("copy-pins").addEventListener("click", (event) => page.copy(this.csv(), event.target));
        for (const [id, k] of [["compare-from", 0], ["compare-to", 1]])
            $(id).addEventListener("change", (event) => {
                const compared = [...this.#compared()];
                compared[k] = Number(event.target.value);
                page.change({ compared });
            });
    }

    // Those that were chosen, else the last two.
    #compared() {
        const last = this.states.length - 1;
        const chosen = this.page.model.compared;
        return chosen && chosen.every((k) => k <= last) ? chosen : [last - 1, last];
    }

    render() {
        const { pins, constant } = this.page.model;
        this.states = pins.map((recipe) => new State(recipe));
        const has = this.states.length > 0;
        $("pins-bar").hidden = $("pins-table").hidden = !has;
        $("pins-hint").hidden = has;
        $("constant").value = constant;
        if (has) this.#renderTable();
        $("compare").hidden = this.states.length < 2;
        if (this.states.length > 1) this.#renderDifference();
    }

    #renderTable() {
        const { units } = this.page.model;
        const head = columns.map((symbol) =>
            `<th scope="col">${typeset(symbol)}<span class="of">${units.label(symbol)}</span></th>`);
        const table = element("table", {}, `<thead><tr><th scope="col" class="text">No.</th>${head.join("")}
            <th scope="col" class="text">Phase</th><th scope="col"><span class="unseen">Remove</span></th></tr></thead><tbody></tbody>`);
        this.states.forEach((state, k) => {
            const cells = columns.map((symbol) => {
                const value = state.of(symbol);
                return `<td>${aligned(Number.isNaN(value) ? null : units.shown(symbol, value), 6)}</td>`;
            });
            const row = element("tr", {}, `<th scope="row">${k + 1}</th>${cells.join("")}
                <td class="text">${state.phase}${state.recipe.family === "B" ? " (B)" : ""}</td><td></td>`);
            const button = element("button", { type: "button", "aria-label": `Remove state ${k + 1}` }, "×");
            button.addEventListener("click", () => {
                this.page.change({ pins: this.page.model.pins.filter((_, at) => at !== k), compared: null });
                (document.querySelectorAll("#pins-table button")[Math.max(0, k - 1)] ?? $("pin-state")).focus();
            });
            row.lastElementChild.append(button);
            table.tBodies[0].append(row);
        });
        $("pins-table").replaceChildren(table);
    }

    #renderDifference() {
        const { units } = this.page.model;
        const compared = this.#compared();
        const [from, to] = compared.map((k) => this.states[k]);
        [$("compare-from"), $("compare-to")].forEach((menu, k) => {
            options(menu, this.states.map((_, at) => [at, `state ${at + 1}`]));
            menu.value = compared[k];
        });
        const rows = properties.filter(({ symbol }) => !Number.isNaN(from.of(symbol) + to.of(symbol))).map(({ symbol, unit }) => {
            const of = unitOfDifference(units.of(unit));
            return `<tr><th scope="row">${nameOf(symbol, "Δ")}</th>
                <td class="value">${aligned(differenceFromBase(of, to.of(symbol) - from.of(symbol)), 6)}</td>
                <td class="unit"><span>${of.label}</span></td></tr>`;
        });
        $("differences").innerHTML = `<caption class="unseen">Difference of state ${compared[1] + 1} from state ${compared[0] + 1}</caption>
            <thead class="unseen"><tr><th scope="col">Property</th><th scope="col">Difference</th><th scope="col">Unit</th></tr></thead>
            <tbody>${rows.join("")}</tbody>`;
    }

    csv() {
        const { units } = this.page.model;
        const some = properties.filter(({ symbol }) => this.states.some((state) => !Number.isNaN(state.of(symbol))));
        const head = some.map(({ symbol }) => units.label(symbol) ? `${symbol} [${units.label(symbol)}]` : symbol);
        return csvOf([["state", ...head, "region", "phase", "family"], ...this.states.map((state, k) => [
            k + 1, ...some.map(({ symbol }) => {
                const value = state.of(symbol);
                return Number.isNaN(value) ? "" : units.shown(symbol, value);
            }), state.region, state.phase, state.recipe.family])]);
    }
}
