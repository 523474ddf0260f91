// SPDX-License-Identifier: MIT
//
// The page's state as the fragment of its address, and back. What cannot be read is left as it was.
import { propertyOf, unitNamed, unitsOf, variables } from "./catalogue.js";
import { branches, Recipe } from "./water.js";
import { chartList } from "./drawing.js";

export function written(model) {
    const { given, family, branch, units, derivative, chart, view, shows, pins, compared, constant } = model;
    const parts = new URLSearchParams();
    given.forEach(({ symbol, text, unit }) => parts.append("given", [symbol, unit.name, text].join("~")));
    parts.set("family", family);
    if (branch) parts.set("branch", branch);
    for (const unit of units.chosen()) parts.append("unit", [unit.of, unit.name].join("~"));
    parts.set("derivative", derivative.join("~"));
    parts.set("chart", chart);
    if (view) parts.set("view", view.map((number) => number.toPrecision(8)).join("~"));
    if (shows !== null) parts.set("shows", shows);
    for (const pin of pins) parts.append("pin", pin);
    if (compared) parts.set("compared", compared.join("~"));
    if (constant) parts.set("constant", constant);
    return "#" + parts;
}

export function read(hash, model) {
    const parts = new URLSearchParams(hash.replace(/^#/, ""));
    const list = (name) => parts.get(name)?.split("~") ?? [];
    const isVariable = (symbol) => variables.some((variable) => variable.symbol === symbol);
    const isChart = (name) => chartList.some((chart) => chart.name === name);
    const numbers = (name, count) => {
        const found = list(name).map(Number);
        return found.length === count && found.every(Number.isFinite) ? found : null;
    };
    for (const [of, name] of parts.getAll("unit").map((unit) => unit.split("~")))
        if (unitsOf(of).length) model.units.choose(unitNamed(of, name));
    const given = parts.getAll("given").map((one) => one.split("~")).filter(([symbol]) => isVariable(symbol))
        .map(([symbol, unit, ...text]) => ({ symbol, unit: unitNamed(propertyOf(symbol).unit, unit), text: text.join("~") }));
    if (given.length === 2 && branches(given[0].symbol, given[1].symbol)) model.given = given;
    if ("OB".includes(parts.get("family") ?? "-")) model.family = parts.get("family");
    model.branch = parts.get("branch") === "1" ? 1 : 0;
    if (list("derivative").length === 3) model.derivative = list("derivative");
    if (isChart(parts.get("chart"))) model.chart = parts.get("chart");
    const view = numbers("view", 3);
    model.view = view && view[0] > 0 ? view : null;
    model.shows = numbers("shows", 1)?.[0] ?? null;
    model.pins = parts.getAll("pin").map((pin) => Recipe.parse(pin)).filter(Boolean);
    model.compared = numbers("compared", 2);
    model.constant = parts.get("constant") ?? "";
}
