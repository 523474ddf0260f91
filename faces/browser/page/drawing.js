// SPDX-License-Identifier: MIT
//
// The lines, marks and processes of a chart, by the library. Places are 0 to 1 from the lower left corner of the whole
// chart.
import { propertyOf } from "./catalogue.js";
import { numbersAt, wasm } from "./water.js";

// In the order of the C++ enumerations.
const charts = ["ts", "hs", "ph", "pt", "pv"];
const quantities = ["p", "T", "v", "h", "s", "x"];
export const kinds =
    ["saturation", "quality", "isobar", "isotherm", "isochore", "isenthalp", "isentrope", "border", "limit"];

const constants = { quality: "x", isobar: "p", isotherm: "T", isochore: "v", isenthalp: "h", isentrope: "s" };
// The symbol of what is constant along a line.
export const constantOf = (kind) => constants[kind];

const symbolOf = (letter) => letter === "t" ? "T" : letter;
// A chart's name is its ordinate and abscissa, but of pt, which is named the other way round.
const axesOf = (name) => {
    const [y, x] = [...name].map(symbolOf);
    return name === "pt" ? { x: "T", y: "p" } : { x, y };
};
const title = { ts: "T-s", hs: "h-s", ph: "log p-h", pt: "p-T", pv: "log p-log v" };
export const chartList = charts.map((name) => ({ name, title: title[name], axes: axesOf(name) }));

export const bitOf = (kind) => 1 << kinds.indexOf(kind);
const results = (count) => numbersAt(wasm().drawn(), count);

// Opens a chart and answers the kinds of lines that are usual in it.
export const open = (name) => wasm().chart(charts.indexOf(name));
export const show = (bits) => wasm().show(bits);
export const look = ({ left, right, bottom, top }, levels) => wasm().look(left, right, bottom, top, levels);

export function useUnits(units) {
    quantities.forEach((symbol, k) => {
        const { times, per, plus } = units.of(propertyOf(symbol).unit);
        wasm().unit(k, per / times, plus);
    });
}

export function lines() {
    const numbers = results(wasm().lines());
    const found = [];
    for (let at = 0; at < numbers.length;) {
        const [kind, level, count] = numbers.subarray(at, at += 3);
        found.push({ kind: kinds[kind], level, places: numbers.subarray(at, at += 2 * count) });
    }
    return found;
}

const number = (axis) => axis === "x" ? 0 : 1;
export const placeOf = (axis, value) => wasm().placed(number(axis), value);
export const valueAt = (axis, place) => wasm().value_at(number(axis), place);
export const ticks = (axis, count) =>
    [...results(wasm().ticks(number(axis), count))].map((value) => ({ value, place: placeOf(axis, value) }));

// Places along a process from state to state.
export function process(from, to) {
    from.recall();
    wasm().keep();
    to.recall();
    return results(wasm().process());
}
