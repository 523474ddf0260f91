// SPDX-License-Identifier: MIT
//
// Two given variables, the state they have, and a derivative of it.
import {
    codeNamed, differenceFromBase, indexOf, meaningOf, nameOf, properties, propertyOf, sloped, toBase, typeset,
    unitOfDifference, unitsOf, variables,
} from "./catalogue.js";
import { csvOf, element, options } from "./html.js";
import { aligned, readQuantity, text } from "./numbers.js";
import { branches, Recipe, State } from "./water.js";

const $ = (id) => document.getElementById(id);
const meaning = (symbol) => variables.find((variable) => variable.symbol === symbol).meaning;
const capital = (words) => words[0].toUpperCase() + words.slice(1);
const lastOfGroup = new Set(["x", "g", "g_ideal"]);  // a line is drawn below these

export class Calculator {
    constructor(page) {
        this.page = page;
        this.rows = [...document.querySelectorAll(".given")].map((row, k) => this.#givenRow(row, k));
        for (const radio of document.querySelectorAll("[name=family]"))
            radio.addEventListener("change", () => page.change({ family: radio.value }));
        $("given").addEventListener("submit", (event) => event.preventDefault());
        $("pin-state").addEventListener("click", () => this.state?.ok && page.pin(this.state.recipe));
        $("copy-state").addEventListener("click", (event) => page.copy(this.#csv(), event.target));
        this.#propertyRows();
        this.#derivativeMenus();
    }

    #givenRow(row, k) {
        const nth = ["First", "Second"][k];
        const symbol = element("select", { "aria-label": `${nth} variable` });
        const value = element("input", { type: "text", inputmode: "text", spellcheck: "false" });
        const unit = element("select", {});
        row.append(symbol, value, unit);
        symbol.addEventListener("change", () => this.#exchange(k, symbol.value));
        value.addEventListener("input", () => this.#give(k, { text: value.value }));
        value.addEventListener("change", () => this.#takeUnit(k));
        unit.addEventListener("change", () => this.#give(k, { unit: unitsOf(propertyOf(symbol.value).unit)[unit.selectedIndex] }));
        return { symbol, value, unit };
    }

    #give(k, change) {
        const given = this.page.model.given.map((one, at) => at === k ? { ...one, ...change } : one);
        if (change.unit) this.page.model.units.choose(change.unit);
        this.page.change({ given });
    }

    // A unit that was typed behind the number goes to the menu.
    #takeUnit(k) {
        const { symbol, text: typed } = this.page.model.given[k];
        const { digits, unit } = readQuantity(typed, propertyOf(symbol).unit);
        if (unit) this.#give(k, { text: digits, unit });
    }

    // Another variable of the same state, if there is one.
    #exchange(k, symbol) {
        const unit = this.page.model.units.of(propertyOf(symbol).unit);
        const value = this.state?.ok ? this.state.of(symbol) : NaN;
        const shown = Number.isFinite(value) ? String(this.page.model.units.shown(symbol, value)) : "";
        this.page.model.branch = 0;
        this.#give(k, { symbol, unit, text: shown });
    }

    #propertyRows() {
        this.cells = properties.map(({ symbol, quantity, unit }) => {
            const row = element("tr", lastOfGroup.has(symbol) ? { class: "split" } : {},
                `<th scope="row">${nameOf(symbol)}</th><td class="value"></td><td class="unit"></td>`);
            const cell = { row, value: row.querySelector(".value") };
            const known = unitsOf(unit);
            if (known.length > 1) {
                cell.unit = element("select", { "aria-label": `Unit of ${quantity}` });
                options(cell.unit, known.map((one) => [one.name, one.label]));
                cell.unit.addEventListener("change", () => {
                    this.page.model.units.choose(known[cell.unit.selectedIndex]);
                    this.page.change({});
                });
                row.lastElementChild.append(cell.unit);
            } else {
                row.lastElementChild.append(element("span", {}, known[0]?.label ?? ""));
            }
            return cell;
        });
        $("properties").tBodies[0].append(...this.cells.map((cell) => cell.row));
    }

    #derivativeMenus() {
        const menu = (k, label, choices) => {
            const select = element("select", { "aria-label": label });
            options(select, choices);
            select.addEventListener("change", () => {
                const derivative = [...this.page.model.derivative];
                derivative[k] = select.value;
                this.page.change({ derivative });
            });
            return select;
        };
        const all = sloped.map((symbol) => [symbol, symbol]);
        this.menus = [menu(0, "Derivative of", all), menu(1, "by", all),
            menu(2, "at constant", [...all, ["line", "saturation"]])];
        const quotient = element("span", { class: "quotient" },
            `<span class="bracket" aria-hidden="true">(</span><span class="over"><span>∂ </span><span>∂ </span></span>
             <span class="bracket" aria-hidden="true">)</span><span class="at"></span>`);
        const [above, below] = quotient.querySelectorAll(".over span");
        above.append(this.menus[0]);
        below.append(this.menus[1]);
        quotient.lastElementChild.append(this.menus[2]);
        this.slope = element("output", { "aria-live": "polite" });
        $("derivative").append(quotient, this.slope);
    }

    // The state that is asked for, or why there is none.
    #ask() {
        const { given, family, branch } = this.page.model;
        const read = given.map(({ symbol, text: typed, unit }) => {
            const { value, unit: written, error } = readQuantity(typed, propertyOf(symbol).unit);
            return error ? { error: `${capital(meaning(symbol))} ${error}.` } : { value: toBase(written ?? unit, value) };
        });
        this.faults = read.map(({ error }) => error);
        const [first, second] = given.map(({ symbol }) => symbol);
        if (this.faults.some(Boolean)) return { fault: this.faults.filter(Boolean).join(" ") };
        const known = branches(first, second);
        if (known === 0) return { fault: `No state is found by ${meaning(first)} and ${meaning(second)}.` };
        const state = new State(new Recipe(first, read[0].value, second, read[1].value, family, Math.min(branch, known - 1)));
        return state.ok ? { state } : { state, fault: `No state: ${meaningOf(state.code)}.` };
    }

    render() {
        const { model } = this.page;
        const { state, fault } = this.#ask();
        this.state = state;
        this.#renderGiven();
        for (const radio of document.querySelectorAll("[name=family]")) radio.checked = radio.value === model.family;
        const said = fault ? `<p class="phase">${html(fault)}</p>`
            : `<p class="phase">${state.phase}</p><p class="place">${this.#distance()}${state.place}; ${model.family}-family</p>`;
        if (this.said !== said) $("answer").innerHTML = this.said = said;
        $("answer").classList.toggle("fault", Boolean(fault));
        $("pin-state").disabled = $("copy-state").disabled = Boolean(fault);
        $("properties").hidden = Boolean(fault);
        this.#renderProperties(fault ? null : state);
        this.#renderPhases(fault ? null : state);
        this.#renderSecond(fault && model.branch === 0 ? null : state);
        this.#renderDerivative(fault ? null : state);
    }

    #renderGiven() {
        const { given } = this.page.model;
        this.rows.forEach(({ symbol, value, unit }, k) => {
            const one = given[k], other = given[1 - k];
            if (symbol.dataset.beside !== other.symbol) {
                options(symbol, variables.map((variable) => [variable.symbol, `${variable.symbol}\u2002${variable.meaning}`]));
                for (const option of symbol.options) option.disabled = branches(option.value, other.symbol) === 0;
                symbol.dataset.beside = other.symbol;
            }
            symbol.value = one.symbol;
            if (unit.dataset.of !== one.symbol) {
                options(unit, unitsOf(propertyOf(one.symbol).unit).map((known) => [known.name, known.label]));
                unit.dataset.of = one.symbol;
                unit.setAttribute("aria-label", `Unit of given ${meaning(one.symbol)}`);
                value.setAttribute("aria-label", capital(meaning(one.symbol)));
            }
            unit.value = one.unit.name;
            if (value.value !== one.text) value.value = one.text;
            value.setAttribute("aria-invalid", String(Boolean(this.faults[k])));
        });
    }

    #distance() {
        const { superheat } = this.state;
        if (!Number.isFinite(superheat)) return "";
        const unit = unitOfDifference(this.page.model.units.of(propertyOf("T").unit));
        return `${text(differenceFromBase(unit, Math.abs(superheat)), 5)} ${unit.label} ${superheat < 0 ? "below" : "above"} saturation; `;
    }

    #renderProperties(state) {
        const { units } = this.page.model;
        const without = new Map();
        properties.forEach(({ symbol, unit }, k) => {
            const cell = this.cells[k];
            const value = state?.values[k] ?? NaN;
            cell.row.hidden = Number.isNaN(value);
            if (cell.unit) cell.unit.value = units.of(unit).name;
            cell.value.innerHTML = Number.isNaN(value) ? "" : aligned(units.shown(symbol, value));
            if (Number.isNaN(value) && state) {
                const code = state.whyNot(symbol);
                without.set(code, [...(without.get(code) ?? []), typeset(symbol)]);
            }
        });
        $("undefined").innerHTML = [...without].map(([code, symbols]) => `<p>${symbols.join(", ")}: ${meaningOf(code)}</p>`).join("");
    }

    #renderPhases(state) {
        const wet = state?.region === 4;
        $("phases").hidden = !wet;
        if (!wet) return;
        const { units } = this.page.model;
        const [liquid, steam] = state.phases();
        const rows = properties.filter((_, k) => !Number.isNaN(liquid[k]) && !Number.isNaN(steam[k])).map(({ symbol }) => {
            const cells = [liquid, steam].map((phase) => `<td class="value">${aligned(units.shown(symbol, phase[indexOf(symbol)]), 6)}</td>`);
            return `<tr><th scope="row">${nameOf(symbol)}</th>${cells.join("")}<td class="unit"><span>${units.label(symbol)}</span></td></tr>`;
        });
        $("phases").innerHTML = `<h3>Phases</h3><table><thead><tr><th scope="col"><span class="unseen">Property</span></th>
            <th scope="col" class="value">liquid</th><th scope="col" class="value">steam</th>
            <th scope="col"><span class="unseen">Unit</span></th></tr></thead><tbody>${rows.join("")}</tbody></table>`;
    }

    // Of two states that the same variables have, the way to the other one.
    #renderSecond(state) {
        const { recipe } = state ?? {};
        const has = recipe && branches(recipe.first, recipe.second) === 2;
        const other = has && new State(Object.assign(new Recipe(), recipe, { branch: 1 - recipe.branch }));
        $("second").hidden = !other?.ok;
        if (!other?.ok) return;
        const { units } = this.page.model;
        const at = ["p", "T"].map((symbol) => `${text(units.shown(symbol, other.of(symbol)))} ${units.label(symbol)}`);
        $("second").textContent = `The same ${recipe.first} and ${recipe.second} have a second state, at ${at.join(" and ")}. `;
        const show = element("button", { type: "button" }, "Show it");
        show.addEventListener("click", () => this.page.change({ branch: 1 - recipe.branch }));
        $("second").append(show);
    }

    #renderDerivative(state) {
        const { units, derivative: [z, x, y] } = this.page.model;
        this.menus.forEach((menu, k) => { menu.value = [z, x, y][k]; });
        const value = state ? state.derivative(z, x, y) : NaN;
        const [above, below] = [z, x].map((symbol) => unitOfDifference(units.of(propertyOf(symbol).unit)));
        const shown = value * (above.per / above.times) / (below.per / below.times);
        const unit = above.label === below.label ? "" : `${above.label} per ${below.label}`;
        this.slope.className = Number.isFinite(shown) ? "" : "none";
        this.slope.innerHTML = Number.isFinite(shown) ? `= ${text(shown)} <span class="unit">${unit}</span>` : this.#noSlope(state, x, y);
    }

    #noSlope(state, x, y) {
        if (!state) return "There is no state.";
        if (y === "line") return `Not on the saturation line: ${meaningOf(codeNamed("not_wet_steam"))}.`;
        return `Not defined: ${x} does not change at constant ${y}${x !== y && state.region === 4 ? " in wet steam" : ""}.`;
    }

    #csv() {
        const { units } = this.page.model;
        return csvOf([["symbol", "quantity", "value", "unit"],
            ...properties.filter(({ symbol }) => !Number.isNaN(this.state.of(symbol)))
                .map(({ symbol, quantity }) => [symbol, quantity, units.shown(symbol, this.state.of(symbol)), units.label(symbol)])]);
    }
}

const html = (words) => words.replace(/[&<>]/g, (c) => ({ "&": "&amp;", "<": "&lt;", ">": "&gt;" })[c]);
