// SPDX-License-Identifier: MIT
//
// The page in Chromium, opened from the disk: typing, clicking, copying, links, accessibility, every width.
// Prints the size of the WebAssembly and how long things take; SCREENSHOTS=folder keeps what it looks like.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { readFileSync, statSync } from "node:fs";
import { createRequire } from "node:module";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { fileURLToPath, pathToFileURL } from "node:url";

const root = fileURLToPath(new URL("../../..", import.meta.url));
const made = `${root}build/page/faces/browser/`;
const address = pathToFileURL(`${root}build/browser/index.html`).href;
const packages = createRequire(`${root}build/page/packages/package.json`);
const puppeteer = packages("puppeteer-core");
const axe = readFileSync(packages.resolve("axe-core/axe.min.js"), "utf8");

let browser, page, faults, requests;

async function open(hash = "", { width = 1280, height = 900, scheme = "light" } = {}) {
    const opened = await browser.newPage();
    opened.on("pageerror", (error) => faults.push(error.message));
    opened.on("request", (request) => requests.push(request.url()));
    await opened.emulateMediaFeatures([{ name: "prefers-color-scheme", value: scheme }]);
    await opened.setViewport({ width, height, hasTouch: width < 500 });
    await opened.goto(address + hash);
    await opened.waitForSelector("html[data-ready]");
    return opened;
}

before(async () => {
    browser = await puppeteer.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox"] });
});
after(() => browser.close());
beforeEach(async () => {
    faults = [];
    requests = [];
    page = await open();
});
afterEach(async () => {
    assert.deepEqual(faults, []);
    assert.deepEqual(requests.filter((url) => !/^(file|data):/.test(url)), [], "it needs no network");
    for (const opened of await browser.pages()) if (opened.url().startsWith("file:")) await opened.close();
});

const textOf = (selector) => page.$eval(selector, (element) => element.innerText.trim());
const settled = () => page.evaluate(() => new Promise((resolve) => setTimeout(resolve, 250)));
const named = (label) => `aria/${label}`;

async function type(label, text) {
    const field = await page.waitForSelector(named(label));
    await field.click({ count: 3 });
    await page.keyboard.press("Backspace");
    if (text) await field.type(text);
}
const choose = async (label, value) => (await page.waitForSelector(named(label))).select(value);
const click = async (label) => (await page.waitForSelector(named(label))).click();

// The rows of the calculator that are seen: symbol to number and unit.
const rows = () => page.$$eval("#properties tbody tr", (all) => Object.fromEntries(all.filter((row) => !row.hidden).map((row) => {
    const unit = row.querySelector("select");
    return [row.querySelector(".name > *").innerText, `${row.querySelector(".value").innerText} ${unit ? unit.selectedOptions[0].label : row.lastChild.innerText}`.trim()];
})));
const number = (cell) => Number(cell.split(" ")[0].replace("−", "-"));

// What a button copied, pasted.
async function copied(selector) {
    await page.$eval(selector, (button) => {
        button.scrollIntoView({ block: "center" });
        button.textContent = button.dataset.label ?? button.textContent;
    });
    await page.click(selector);
    await page.waitForFunction((id) => document.querySelector(id).textContent === "Copied", {}, selector);
    await page.evaluate(() => document.body.append(Object.assign(document.createElement("textarea"), { id: "pasted" })));
    await page.focus("#pasted");
    await page.keyboard.down("Control");
    await page.keyboard.press("v");
    await page.keyboard.up("Control");
    return page.$eval("#pasted", (area) => {
        area.remove();
        return area.value;
    });
}
const table = (csv) => csv.trim().split(/\r?\n/).map((line) => line.split(","));

const spot = async (selector) => page.$eval(selector, (mark) => {
    const box = mark.getBoundingClientRect();
    return [box.x + box.width / 2, box.y + box.height / 2];
});
// Where a fraction of the chart's picture is.
const at = async (x, y) => page.$eval("#chart", (chart, x, y) => {
    const box = chart.getBoundingClientRect();
    return [box.x + x * box.width, box.y + y * box.height];
}, x, y);

test("starts from a file, small and at once", async () => {
    const size = statSync(`${made}vaprix_page.wasm`).size;
    assert.ok(size < 600e3, `${size} bytes`);
    assert.equal(await textOf("#answer .phase"), "Superheated steam");
    console.log(`WebAssembly ${Math.round(size / 1000)} kB; first state after ${await page.$eval("html",
        (html) => Math.round(html.dataset.ready))} ms`);
});

test("has the digits of the exports, in every region and by both families", async () => {
    const states = ["p T 3 300", "p T 80 500", "p T 0.0035 700", "p T 30 700", "p T 25 650", "p T 50 630", "p T 0.5 1500", "p T 30 2000",
        "p h 3 500", "p h 0.1 1500", "p h 25 2100", "p h 40 4000", "p s 0.1 7.5", "p s 20 4.4", "p s 80 0.5", "h s 2700 5.1",
        "h s 1700 3.8", "T d 650 500", "T d 300 997", "p v 25 0.002", "p v 1 0.1", "p x 0.1 0.5", "T x 620 0.3", "T h 600 2900",
        "T s 600 6", "v h 0.1 3000", "v s 0.1 7", "T v 700 0.01", "d h 500 1863.43", "d p 500 25"].flatMap((state) => /^(p [Thsx]|h s)/.test(state) ? [`O ${state}`, `B ${state}`] : [`O ${state}`]);
    const printed = execFileSync(process.execPath, ["--no-experimental-fetch", `${made}vaprix_page_exports.js`,
        ...states.flatMap((state) => state.split(" "))], { encoding: "utf8" });
    let compared = 0;
    for (const [k, state] of states.entries()) {
        const [family, first, second, a, b] = state.split(" ");
        const unit = { p: "MPa", T: "K", v: "m3/kg", d: "kg/m3", h: "kJ/kg", s: "kJ/(kg K)", x: "kg/kg" };
        const link = new URLSearchParams([["given", `${first}~${unit[first]}~${a}`], ["given", `${second}~${unit[second]}~${b}`],
            ["unit", "K~K"], ["family", family]]);
        await page.evaluate((hash) => { location.hash = hash; }, String(link));
        await page.waitForFunction((name, text) => document.querySelector(`[value=${name}]`).checked &&
            [...document.querySelectorAll(".given input")].map((input) => input.value).join(" ") === text, {}, family, `${a} ${b}`);
        const wanted = printed.split("\n").map((line) => line.split(" ")).filter(([of, , value]) => Number(of) === k && Number(value) > -99998);
        const isState = await page.$eval("#pin-state", (button) => !button.disabled);
        if (!isState) {
            assert.deepEqual(wanted, [], `${state}: a state`);
            continue;
        }
        const found = new Map(table(await copied("#copy-state")).map(([symbol, , value]) => [symbol, Number(value)]));
        for (const [, symbol, value] of wanted) {
            assert.equal(found.get(symbol), Number(value), `${state}: ${symbol}`);
            ++compared;
        }
    }
    assert.ok(compared > 300, `${compared} numbers`);
    console.log(`${compared} numbers have the bits of the exports`);
});

test("takes numbers as people write them, in their units", async () => {
    const same = await rows();
    assert.equal(same.h, "3583.308 kJ/kg");
    for (const [p, T] of [["150 bar", "1112 °F"], ["15,0", "600,0"], ["1.5e1", "873.15 K"], [" 2175.566psi ", "+600"], ["15000kPa", "1571.67 R"]]) {
        await type("Pressure", p);
        await type("Temperature", T);
        await page.keyboard.press("Tab");
        assert.ok(Math.abs(number((await rows()).h) / (same.h.includes("Btu") ? 1 : 3583.308) - 1) < 1e-6, `${p}, ${T}`);
        await choose("Unit of given pressure", "MPa");
        await choose("Unit of given temperature", "C");
    }
    await type("Pressure", "3");
    await type("Temperature", "300");
    await choose("Unit of given temperature", "K");
    const published = await rows();  // IAPWS R7-97(2012), Table 5
    assert.deepEqual([published.v, published.h, published.s, published.w].map(number), [0.001002152, 115.3313, 0.3922948, 1507.739]);
    await choose("Unit of specific enthalpy", "Btu/lb");
    await choose("Unit of pressure", "bar");
    const shown = await rows();
    assert.deepEqual([shown.h, shown.u.split(" ")[1], shown.p], ["49.58352 Btu/lb", "Btu/lb", "30 bar"]);
    assert.equal(await page.$eval(".given input", (input) => input.value), "3", "what was given stays");
    await choose("Unit of given pressure", "kPa");
    assert.equal((await rows()).p, "3 kPa");
    await choose("Second variable", "s");
    assert.equal(Math.round(number((await rows()).T) * 1e4) / 1e4, 300, "another variable of the same state");
});

test("says why there is no state, and shows no number then", async () => {
    const cases = [["200", "600", "outside the range of validity (code −10055)"], ["", "600", "Pressure is missing."],
        ["15", "", "Temperature is missing."], ["abc", "600", "“abc” is not a number"], ["1,234.5", "600", "more than one decimal mark"],
        ["15 furlongs", "600", "“furlongs” is no unit here; there are MPa, bar"], ["-1", "600", "outside the range"],
        ["1e400", "600", "too large"], ["<b>1", "600", "“<b>1” is not a number"], ["15", "-300", "outside the range"]];
    for (const [p, T, reason] of cases) {
        await type("Pressure", p);
        await type("Temperature", T);
        const said = await textOf("#answer");
        assert.ok(said.includes(reason), `${p}, ${T}: ${said}`);
        assert.equal(await page.$eval("#properties", (properties) => properties.hidden), true);
        assert.doesNotMatch(await textOf("main"), /NaN|undefined|null/, `${p}, ${T}`);
    }
    assert.equal(await page.$eval("#answer", (answer) => answer.getAttribute("aria-live")), "polite");
    await type("Temperature", "300");
    await choose("First variable", "p");
    await choose("Second variable", "x");
    await type("Pressure", "1");
    await type("Vapour quality", "1.5");
    assert.match(await textOf("#answer"), /quality outside 0 to 1/);
    const disabled = await page.$$eval(".given select[aria-label='First variable'] option", (all) => all.filter((o) => o.disabled).map((o) => o.value));
    assert.deepEqual(disabled, ["x"], "a quality and any other variable");
    await choose("First variable", "h");
    await type("Vapour quality", "1");
    await type("Specific enthalpy", "2790");
    assert.equal((await rows()).h, "2790 kJ/kg");
    assert.match(await textOf("#second"), /second state/, "saturated steam on both sides of its greatest enthalpy");
});

test("shows both families, wet steam with its phases, and second states", async () => {
    await choose("Second variable", "h");
    await type("Pressure", "25");
    await type("Specific enthalpy", "2100");
    const consistent = (await rows()).T;
    await click("B, direct");
    assert.match(await textOf("#answer .place"), /B-family/);
    assert.notEqual((await rows()).T, consistent);
    await click("O, consistent");
    assert.equal((await rows()).T, consistent);

    await choose("Second variable", "x");
    await type("Pressure", "0.1");
    await type("Vapour quality", "50%");
    assert.equal(await textOf("#answer .phase"), "Wet steam");
    const phases = await page.$$eval("#phases tbody tr", (all) => Object.fromEntries(all.map((row) =>
        [row.querySelector(".name > *").innerText, [...row.querySelectorAll(".value")].map((cell) => Number(cell.innerText.replace("−", "-")))])));
    const { h } = await rows();
    assert.ok(Math.abs((phases.h[0] + phases.h[1]) / 2 - number(h)) < 0.01, "the lever rule");
    assert.match(await textOf("#undefined"), /w, κ.*: wet steam has no such property \(code −10007\)/);

    await page.goto(`${address}#given=T~K~300&given=h~kJ/kg~150`);
    await page.reload();
    await page.waitForSelector("html[data-ready]");
    const { p } = await rows();
    assert.match(await textOf("#second"), /^The same T and h have a second state, at /);
    await click("Show it");
    assert.ok(number((await rows()).p) > number(p), "at a higher pressure");
    await click("Show it");
    assert.equal((await rows()).p, p);
});

test("answers any partial derivative, or why there is none", async () => {
    const slope = () => textOf("#derivative output");
    await choose("Derivative of", "h");
    await choose("by", "T");
    await choose("at constant", "p");
    assert.equal(await slope(), "= 2.612007 kJ/kg per K");
    assert.equal(number((await rows()).cp), 2.612007);
    await choose("Unit of temperature", "F");
    await choose("Unit of specific enthalpy", "Btu/lb");
    assert.match(await slope(), /^= 0\.623867\d* Btu\/lb per °R$/);
    await choose("at constant", "T");
    assert.equal(await slope(), "Not defined: T does not change at constant T.");
    await choose("at constant", "line");
    assert.match(await slope(), /^Not on the saturation line: not wet steam \(code −10058\)/);
    await choose("Second variable", "x");
    await type("Pressure", "1");
    await type("Vapour quality", "0");
    await choose("Derivative of", "p");
    await choose("Unit of temperature", "K");
    const [, , unit] = /^= (\S+) (.*)/.exec(await slope());
    assert.equal(unit, "MPa per K");
    assert.ok(Math.abs(number((await slope()).slice(2)) - 2014.4 / (453.03 * 0.19323) / 1000) < 1e-4, "dps/dT after Clausius and Clapeyron");
});

test("computes the state under the pointer, zooms, pans", async () => {
    const view = () => page.$$eval("#chart .axis text", (all) => all.map((text) => text.textContent).join(" "));
    const hover = async () => {
        await page.mouse.move(...await spot(".given-mark"));
        return page.$$eval("#readout dl", ([list]) => Object.fromEntries([...list.querySelectorAll("dt")].map((name) =>
            [name.innerText, Number(name.nextElementSibling.innerText.replace("−", "-"))])));
    };
    const near = (found, wanted, by) => assert.ok(Math.abs(found / wanted - 1) < by, `${found}, not ${wanted}`);
    for (const [chart, title] of Object.entries({ ts: "T-s", hs: "h-s", ph: "log p-h", pt: "p-T", pv: "log p-log v" })) {
        await click(title);
        const state = await hover();
        near(state.T, 600, 0.01);
        near(state.p, 15, 0.05);
        const whole = await view();
        for (let k = 0; k < 12; ++k) await page.mouse.wheel({ deltaY: -240 });
        await settled();
        assert.notEqual(await view(), whole, chart);
        const close = await hover();
        near(close.p, 15, 1e-4);
        near(close.h, 3583.308, 1e-4);
        near(close["λ"], number((await rows())["λ"]), 1e-3);
        await click("Reset");
        await settled();
        assert.equal(await view(), whole, chart);
    }
    await click("T-s");
    const whole = await view();
    await click("Zoom in");
    await settled();
    assert.notEqual(await view(), whole);
    const before = await spot(".given-mark");
    const [x, y] = await at(0.5, 0.5);
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x - 70, y + 40, { steps: 4 });
    await page.mouse.up();
    await settled();
    const after = await spot(".given-mark");
    assert.deepEqual([Math.round(after[0] - before[0]), Math.round(after[1] - before[1])], [-70, 40]);
    assert.equal(await page.$("#pins-table tr"), null, "a drag pins nothing");
    await page.mouse.move(...await at(0.12, 0.08));
    assert.match(await textOf("#readout"), /No state\s+outside the range of validity \(code −10055\)/);

    const taken = [];
    for (let k = 0; k < 100; ++k) {
        await page.mouse.move(...await at(0.4 + k / 250, 0.5 + k / 500));
        taken.push(await page.$eval("#chart", (chart) => Number(chart.dataset.hover)));
    }
    const mean = taken.reduce((sum, one) => sum + one) / taken.length;
    console.log(`a state under the pointer takes ${mean.toFixed(2)} ms; all lines ${await page.$eval("#chart",
        (chart) => Math.round(chart.dataset.tracing))} ms`);
});

test("pins states to a process, compares and copies them", async () => {
    await click("h-s");
    await click("Pin state");
    await page.select("#constant", "s");
    await page.mouse.click(...await at(0.75, 0.4));
    await page.select("#constant", "p");
    await page.mouse.click(...await at(0.3, 0.8));
    await settled();
    assert.equal((await page.$$("#chart .process")).length, 2);
    const csv = table(await copied("#copy-pins"));
    const [head, ...states] = csv;
    assert.deepEqual([head.slice(0, 4), head.slice(-3)], [["state", "p [MPa]", "T [°C]", "v [m³/kg]"], ["region", "phase", "family"]]);
    assert.equal(states.length, 3);
    const of = (state, symbol) => Number(state[head.findIndex((name) => name.split(" ")[0] === symbol)]);
    assert.ok(Math.abs(of(states[1], "s") / of(states[0], "s") - 1) < 1e-12, "isentropic");
    assert.equal(of(states[2], "p"), of(states[1], "p"), "isobaric");
    assert.equal(of(states[0], "h").toFixed(3), "3583.308");

    await page.select("#compare-from", "0");
    await page.select("#compare-to", "1");
    const differences = await page.$$eval("#differences tbody tr", (all) => Object.fromEntries(all.map((row) =>
        [row.querySelector(".symbol").innerText, Number(row.querySelector(".value").innerText.replace("−", "-"))])));
    assert.ok(Math.abs(differences["Δh"] - (of(states[1], "h") - of(states[0], "h"))) < 0.01);
    await click("Remove state 1");
    assert.equal((await page.$$("#pins-table tbody tr")).length, 2);
    await click("Remove all");
    assert.equal(await page.$eval("#pins-table", (pinned) => pinned.hidden), true);
});

test("restores everything from its link in a new page", async () => {
    await choose("Second variable", "s");
    await type("Pressure", "0,1 bar");
    await page.keyboard.press("Tab");
    await click("B, direct");
    await choose("Unit of temperature", "F");
    await click("log p-h");
    await click("isochores");
    await page.mouse.click(...await at(0.5, 0.5));
    await page.mouse.click(...await at(0.6, 0.4));
    await click("Zoom in");
    await page.mouse.move(...await at(0.5, 0.5));
    await page.mouse.wheel({ deltaY: -300 });
    await settled();
    const look = () => page.evaluate(() => [...document.querySelectorAll("#answer, #properties, #pins-table, #differences, #legend, .axis")]
        .map((part) => part.textContent).concat([...document.querySelectorAll("input, select")].map((input) => input.checked + input.value)));
    const link = await copied("#copy-link");
    assert.equal(await page.evaluate(() => location.href), link, "the address is the link");
    const seen = await look();
    page = await open(link.slice(address.length));
    assert.deepEqual(await look(), seen);
    assert.equal((await page.$$("#pins-table tbody tr")).length, 2);

    page = await open("#given=zz&given=p~MPa&pin=foo&pin=pT_9e9_1_O_0&pin=&view=a&chart=&unit=K~&derivative=a~b&family=&shows=x&compared=7~8&constant=q");
    assert.equal((await rows()).h, "3583.308 kJ/kg", "junk is left alone");
});

test("is used by keyboard alone", async () => {
    const focused = () => page.evaluate(() => document.activeElement.id || document.activeElement.getAttribute("aria-label") || document.activeElement.value);
    const order = [];
    for (let k = 0; k < 9; ++k) {
        await page.keyboard.press("Tab");
        order.push(await focused());
    }
    assert.deepEqual(order, ["copy-link", "First variable", "Pressure", "Unit of given pressure", "Second variable", "Temperature",
        "Unit of given temperature", "O", "pin-state"]);
    await page.focus("#chart");
    assert.notEqual(await page.$eval("#chart", (chart) => getComputedStyle(chart).outlineStyle), "none", "the focus is seen");
    await page.keyboard.press("ArrowRight");
    for (let k = 0; k < 3; ++k) await page.keyboard.press("ArrowDown");
    await page.waitForFunction(() => document.getElementById("chart-said").textContent !== "");
    assert.match(await textOf("#chart-said"), /: p [\d.]+ MPa, T [\d.]+ °C, v /);
    await page.keyboard.press("Enter");
    assert.equal((await page.$$("#pins-table tbody tr")).length, 1);
    const whole = await page.$eval("#chart .axis", (axis) => axis.textContent);
    for (const keys of [["+"], ["Shift", "ArrowRight"]]) {
        await page.keyboard.down(keys[0]);
        for (const key of keys.slice(1)) await page.keyboard.press(key);
        await page.keyboard.up(keys[0]);
    }
    await settled();
    assert.notEqual(await page.$eval("#chart .axis", (axis) => axis.textContent), whole);
    await page.keyboard.press("0");
    await settled();
    assert.equal(await page.$eval("#chart .axis", (axis) => axis.textContent), whole);
});

const wet = "#given=p~MPa~0.1&given=x~kg/kg~0.5&chart=hs&unit=K~C&pin=pT_15_873.15_O_0&pin=ps_0.01_6.68_O_0&pin=px_0.01_0_O_0&pin=ps_15_0.65_O_0";
const links = Object.entries({ steam: "", wet, failed: "#given=p~MPa~abc&given=T~K~1" });
for (const scheme of ["light", "dark"])
    for (const width of [360, 768, 1280, 1920])
        test(`fits ${width} pixels, ${scheme}, and is accessible`, async () => {
            for (const [name, hash] of links) {
                page = await open(hash, { width, height: width < 500 ? 780 : 1000, scheme });
                if (width === 360) {  // wider, it has the same elements and colours
                    await page.evaluate(axe);
                    const { violations } = await page.evaluate(() => window.axe.run());
                    assert.deepEqual(violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html)}`), [], name);
                }
                const widths = await page.$$eval("#tabs button", (tabs) => [...tabs, tabs[0]].map((tab) => {
                    tab.click();
                    return document.documentElement.scrollWidth;
                }));
                assert.ok(widths.every((wide) => wide === width), `${name} scrolls sideways: ${widths}`);
                if (process.env.SCREENSHOTS)
                    await page.screenshot({ path: `${process.env.SCREENSHOTS}/${name}-${width}-${scheme}.png`, fullPage: true });
                await page.close();
            }
        });
