// SPDX-License-Identifier: MIT
//
// Numbers as people write and read them.
import { superscript, unitSpelled, unitsOf } from "./catalogue.js";

// { value, digits, unit } or { error } of what was typed for a quantity, a unit behind it being optional.
export function readQuantity(text, base) {
    const typed = text.trim().replace(/\u2212/g, "-");
    if (typed === "") return { error: "is missing" };
    const [, digits, rest] = /^([+-]?[\d.,]*\d[\d.,]*(?:[eE][+-]?\d+)?)\s*(.*)$/.exec(typed) ?? [];
    if (digits === undefined) return { error: `“${text.trim()}” is not a number` };
    if (/[.,].*[.,]/.test(digits))
        return { error: `“${digits}” has more than one decimal mark; write thousands without separators` };
    const value = Number(digits.replace(",", "."));
    if (!Number.isFinite(value)) return { error: `“${digits}” is too large` };
    if (rest === "") return { value, digits };
    const unit = unitSpelled(base, rest);
    const known = unitsOf(base).map((other) => other.label).join(", ");
    return unit ? { value, digits, unit } : { error: `“${rest}” is no unit here; there are ${known}` };
}

// Significant digits without trailing zeros, [before the decimal mark, from it on].
export function rounded(value, digits = 7) {
    if (!Number.isFinite(value)) return [value > 0 ? "∞" : "−∞", ""];
    const size = Math.abs(value);
    const plain = size === 0 || (size >= 1e-4 && size < 1e6);
    const [number, exponent] = plain ? [value.toPrecision(digits)] : value.toExponential(digits - 1).split("e");
    const [whole, fraction = ""] = (plain ? inFull(number) : number).split(".");
    const tail = fraction.replace(/0+$/, "");
    return [whole.replace("-", "\u2212"),
        (tail ? "." + tail : "") + (exponent ? `·10${superscript(Number(exponent))}` : "")];
}
const inFull = (number) => number.includes("e") ? String(Number(number)) : number;

export const text = (value, digits) => rounded(value, digits).join("");

// A number whose decimal mark stands under those of its column, in HTML; a dash of null.
export function aligned(value, digits) {
    const [whole, fraction] = value === null ? ["–", ""] : rounded(value, digits);
    return `<span class="number">${whole}<span class="fraction">${fraction}</span></span>`;
}
