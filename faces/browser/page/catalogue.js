// SPDX-License-Identifier: MIT
//
// What the catalogue knows of properties, units and codes; browser.py makes catalogue.json.
import catalogue from "catalogue.json";

export const { version, variables, properties, sloped } = catalogue;
const position = new Map(properties.map((property, k) => [property.symbol, k]));

export const indexOf = (symbol) => position.get(symbol);
export const propertyOf = (symbol) => properties[indexOf(symbol)];

// The meaning of an error code, and a code by its name.
export const meaningOf = (code) => `${catalogue.codes[code]} (code \u2212${Math.abs(code)})`;
export const codeNamed = (name) => catalogue.names[name];

const greek = {
    alpha: "α", beta: "β", epsilon: "ε", eta: "η", kappa: "κ", lambda: "λ", mu: "μ", nu: "ν", sigma: "σ",
};
const written = { cp: ["c", "p"], cv: ["c", "v"], g_ideal: ["g", "id"] };
const escaped = (text) => `<i>${text}</i>`;

// A symbol as print has it, in HTML.
export function typeset(symbol) {
    if (symbol.includes("_per_")) return symbol.split("_per_").map(typeset).join("/");
    const [letter, below] = written[symbol] ?? symbol.split("_");
    return escaped(greek[letter] ?? letter) + (below ? `<sub>${escaped(below)}</sub>` : "");
}

// The head of a row: symbol and quantity, which are one word of the fugacity.
export function nameOf(symbol, before = "") {
    const { quantity } = propertyOf(symbol);
    const isWord = symbol === quantity;
    const mark = isWord && !before ? "" : `<span class="symbol">${before}${isWord ? "" : typeset(symbol)}</span>`;
    return `<span class="name">${mark}<span class="quantity">${quantity}</span></span>`;
}

// A unit as print has it: °C, m³/kg, 10⁻⁶ Pa·s.
const raised = { 0: "⁰", 1: "¹", 2: "²", 3: "³", 4: "⁴", 5: "⁵", 6: "⁶", 7: "⁷", 8: "⁸", 9: "⁹", "-": "⁻" };
export const superscript = (number) => [...String(number)].map((digit) => raised[digit]).join("");
const labelOf = (unit) => (unit.also.find((name) => name.startsWith("°")) ?? unit.name)
    .replace(/^1e(-?\d+) /, (_, power) => `10${superscript(power)}\u00a0`)
    .replace(/([a-z])([23])/g, (_, letter, power) => letter + superscript(power))
    .replace(/([A-Za-z]) (?=[A-Z]|s)/g, "$1·")
    .replace(/^u(?=[A-Z])/, "µ");
for (const unit of catalogue.units) unit.label = labelOf(unit);

export const unitsOf = (base) => catalogue.units.filter((unit) => unit.of === base);
const plain = { of: "", name: "", label: "", also: [], plus: 0, times: 1, per: 1 };
export const unitNamed = (base, name) =>
    catalogue.units.find((unit) => unit.of === base && unit.name === name) ?? unitsOf(base)[0] ?? plain;

// A unit of the kind by any of its spellings, as people type them.
const bare = (text) => text.replace(/[\s()*.·-]/g, "");
export function unitSpelled(base, text) {
    const wanted = bare(text);
    return unitsOf(base).find((unit) =>
        [unit.name, unit.label, ...unit.also].some((name) => bare(name) === wanted));
}

export const toBase = (unit, value) => (value + unit.plus) * unit.times / unit.per;
export const fromBase = (unit, value) => value * unit.per / unit.times - unit.plus;

// The unit of a difference: K of °C.
export const unitOfDifference = (unit) =>
    unitsOf(unit.of).find((other) => other.plus === 0 && other.times * unit.per === unit.times * other.per) ?? unit;
export const differenceFromBase = (unit, value) => value * unit.per / unit.times;

// The units that are shown, one for each unit of the catalogue.
export class Units {
    #chosen = new Map();
    choose(unit) {
        this.#chosen.set(unit.of, unit);
    }
    of(base) {
        return this.#chosen.get(base) ?? unitNamed(base, base);
    }
    shown(symbol, value) {
        return fromBase(this.of(propertyOf(symbol).unit), value);
    }
    label(symbol) {
        return this.of(propertyOf(symbol).unit).label;
    }
    chosen() {
        return [...this.#chosen.values()];
    }
}
