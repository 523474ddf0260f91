// SPDX-License-Identifier: MIT
//
// The chart: lines on a canvas, axes and marks in SVG above it, a pointer that computes the state where it is.
import { select } from "d3-selection";
import { zoom, zoomIdentity } from "d3-zoom";
import * as drawing from "./drawing.js";
import { element } from "./html.js";
import { drawLabels } from "./labels.js";
import { text } from "./numbers.js";
import { Readout } from "./readout.js";
import { Recipe, State } from "./water.js";

const $ = (id) => document.getElementById(id);

const names = { saturation: "saturation line", quality: "quality", border: "region borders", limit: "limits" };
const dashes = { border: [5, 4], limit: [2, 3] };
const edge = { left: 66, right: 14, top: 10, bottom: 46 };
const resting = 80;  // milliseconds without a move before the lines of a new view are computed
const most = 16;     // levels of a kind
const step = 12;     // pixels that an arrow key moves the pointer

export class Chart {
    constructor(page) {
        this.page = page;
        this.host = $("chart");
        this.canvas = this.host.querySelector("canvas");
        this.svg = select(this.host).select("svg");
        this.axisMarks = this.svg.append("g").attr("class", "axis");
        this.svg.append("clipPath").attr("id", "plot").append("rect");
        const inside = this.svg.append("g").attr("clip-path", "url(#plot)");
        this.marks = inside.append("g");
        this.cross = inside.append("path").attr("class", "pointer");
        this.readout = new Readout(page);
        this.zoom = zoom().scaleExtent([0.4, 1e4]).clickDistance(4).on("zoom", (event) => this.#zoomed(event));
        this.svg.call(this.zoom).on("dblclick.zoom", null);
        this.transform = zoomIdentity;
        this.lines = [];
        this.#tabs();
        this.#legend();
        this.#controls();
        new ResizeObserver(() => this.#resize()).observe(this.host);
        matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => this.#paint());
    }

    #tabs() {
        for (const { name, title } of drawing.chartList) {
            const tab = element("button", { type: "button", "data-chart": name }, title);
            tab.addEventListener("click", () => this.page.change({ chart: name, view: null, shows: null }));
            $("tabs").append(tab);
        }
    }

    #legend() {
        for (const kind of drawing.kinds) {
            const label = element("label", {}, `<input type="checkbox" value="${kind}"><span class="key"
                style="border-color: var(--${kind})"></span>${names[kind] ?? kind + "s"}`);
            label.firstChild.addEventListener("change", (event) => {
                const bit = drawing.bitOf(kind);
                this.page.change({ shows: event.target.checked ? this.shown | bit : this.shown & ~bit });
            });
            $("legend").append(label);
        }
    }

    #controls() {
        $("zoom-in").addEventListener("click", () => this.#scale(1.6));
        $("zoom-out").addEventListener("click", () => this.#scale(1 / 1.6));
        $("zoom-reset").addEventListener("click", () => this.svg.call(this.zoom.transform, zoomIdentity));
        const node = this.svg.node();
        node.addEventListener("pointermove", (event) => this.#point(this.#pixelsOf(event)));
        node.addEventListener("pointerleave", (event) => event.pointerType === "mouse" && this.#leave());
        node.addEventListener("click", (event) => {
            this.#point(this.#pixelsOf(event));
            this.#pin();
        });
        this.host.addEventListener("keydown", (event) => this.#key(event));
        this.host.addEventListener("blur", () => this.#leave());
    }

    // Pixels of a place, and the place of pixels.
    #x(place) {
        return this.box.left + this.transform.applyX(place * this.box.width);
    }
    #y(place) {
        return this.box.top + this.transform.applyY((1 - place) * this.box.height);
    }
    #placeAt([x, y]) {
        return [this.transform.invertX(x - this.box.left) / this.box.width,
            1 - this.transform.invertY(y - this.box.top) / this.box.height];
    }
    #pixelsOf(event) {
        const { left, top } = this.host.getBoundingClientRect();
        return [event.clientX - left, event.clientY - top];
    }
    get window() {
        const { left, right, top, bottom } = this.box;
        const [[west, south], [east, north]] = [this.#placeAt([left, bottom]), this.#placeAt([right, top])];
        return { left: west, right: east, bottom: south, top: north };
    }
    get axes() {
        return drawing.chartList.find(({ name }) => name === this.page.model.chart).axes;
    }
    // Where a state is, in pixels.
    #spot(state) {
        return [this.#x(drawing.placeOf("x", state.of(this.axes.x))), this.#y(drawing.placeOf("y", state.of(this.axes.y)))];
    }

    #scale(factor) {
        this.svg.call(this.zoom.scaleBy, factor, [this.box.width / 2, this.box.height / 2]);
    }

    #resize() {
        const { clientWidth, clientHeight } = this.host;
        const { left, top } = edge, right = clientWidth - edge.right, bottom = clientHeight - edge.bottom;
        const [width, height] = [right - left, bottom - top];
        if (width < 1 || height < 1) return;
        this.box = { left, top, right, bottom, width, height };  // of the plot, in pixels
        this.zoom.extent([[0, 0], [width, height]]);
        this.svg.select("clipPath rect").attr("x", left).attr("y", top).attr("width", width).attr("height", height);
        this.canvas.width = clientWidth * devicePixelRatio;
        this.canvas.height = clientHeight * devicePixelRatio;
        this.render();
    }

    #zoomed({ transform, sourceEvent }) {
        this.transform = transform;
        if (this.isRestoring) return;
        const { k, x, y } = transform;
        this.page.model.view = k === 1 && x === 0 && y === 0 ? null : [k, x / this.box.width, y / this.box.height];
        this.page.save();
        this.#paint();
        if (sourceEvent?.type === "mousemove") this.#leave();
        clearTimeout(this.timer);
        this.timer = setTimeout(() => {
            this.#trace();
            this.#paint();
        }, resting);
    }

    // The view of the model, which a link may have set.
    #restore() {
        const [k, x, y] = this.page.model.view ?? [1, 0, 0];
        this.isRestoring = true;
        this.svg.call(this.zoom.transform, zoomIdentity.translate(x * this.box.width, y * this.box.height).scale(k));
        this.isRestoring = false;
    }

    render() {
        const { chart } = this.page.model;
        if (!this.box) return;
        this.#restore();
        this.#trace();
        for (const tab of $("tabs").children) tab.setAttribute("aria-pressed", String(tab.dataset.chart === chart));
        this.host.setAttribute("aria-label", `Chart of ${this.axes.y} over ${this.axes.x}`);
        for (const label of $("legend").children) {
            const box = label.firstChild;
            const constant = drawing.constantOf(box.value);
            label.hidden = constant === this.axes.x || constant === this.axes.y || (constant === "x" && chart === "pt");
            box.checked = (this.shown & drawing.bitOf(box.value)) !== 0;
        }
        this.#paint();
    }

    // Asks for the lines of what is seen, unless these are they.
    #trace() {
        const { chart, shows, units } = this.page.model;
        const usual = drawing.open(chart);
        this.shown = shows ?? usual;
        drawing.show(this.shown);
        drawing.useUnits(units);
        drawing.look(this.window, Math.min(most, Math.floor(this.box.width / 45)));
        const asked = JSON.stringify([chart, this.shown, this.window, this.box.width, units.chosen()]);
        if (asked === this.asked) return;
        this.asked = asked;
        const started = performance.now();
        this.lines = drawing.lines();
        Object.assign(this.host.dataset, { lines: this.lines.length, tracing: performance.now() - started });
    }

    #paint() {
        const style = getComputedStyle(this.host);
        const colorOf = (name) => style.getPropertyValue(`--${name}`).trim();
        const { left, top, width, height } = this.box;
        const pen = this.canvas.getContext("2d");
        pen.setTransform(devicePixelRatio, 0, 0, devicePixelRatio, 0, 0);
        pen.clearRect(0, 0, this.canvas.width, this.canvas.height);
        pen.save();
        pen.beginPath();
        pen.rect(left, top, width, height);
        pen.clip();
        pen.lineJoin = "round";
        const placed = this.lines.map((line) => ({ ...line, pixels: this.#pixels(line.places) }));
        for (const { kind, pixels } of placed) {
            pen.beginPath();
            for (const [x, y] of pixels) pen.lineTo(x, y);
            pen.strokeStyle = colorOf(kind);
            pen.lineWidth = kind === "saturation" ? 2 : 1;
            pen.globalAlpha = drawing.constantOf(kind) ? 0.7 : 1;
            pen.setLineDash(dashes[kind] ?? []);
            pen.stroke();
        }
        pen.globalAlpha = 1;
        const labelled = placed.filter(({ kind }) => drawing.constantOf(kind))
            .map((line) => ({ ...line, label: this.#labelOf(line) }));
        drawLabels(pen, labelled, this.box, colorOf, style.fontFamily);
        pen.restore();
        drawing.look(this.window, most);
        this.#drawAxes();
        this.#drawMarks();
    }

    #pixels(places) {
        return Array.from({ length: places.length / 2 }, (_, k) => [this.#x(places[2 * k]), this.#y(places[2 * k + 1])]);
    }

    #labelOf({ kind, level }) {
        const symbol = drawing.constantOf(kind);
        const { units } = this.page.model;
        const number = text(units.shown(symbol, level), 6);
        return symbol === "x" ? `x = ${number}` : `${number} ${units.label(symbol)}`;
    }

    #drawAxes() {
        const { units } = this.page.model;
        const { left, right, top, bottom, width, height } = this.box;
        const axis = this.axisMarks;
        axis.selectAll("*").remove();
        axis.append("path").attr("fill", "none").attr("d", `M${left},${top}V${bottom}H${right}`);
        const write = (x, y, anchor, words) =>
            axis.append("text").attr("x", x).attr("y", y).attr("text-anchor", anchor).text(words);
        const line = (d) => axis.append("path").attr("d", d);
        let free = -Infinity;
        for (const { value, place } of drawing.ticks("x", Math.max(4, Math.floor(width / 70)))) {
            const at = this.#x(place);
            const words = text(units.shown(this.axes.x, value), 6);
            line(`M${at},${bottom}v5`);
            if (at - words.length * 3.5 < free) continue;
            free = at + words.length * 3.5 + 8;
            write(at, bottom + 18, "middle", words);
        }
        free = Infinity;
        for (const { value, place } of drawing.ticks("y", Math.max(4, Math.floor(height / 32)))) {
            const at = this.#y(place);
            line(`M${left},${at}h-5`);
            if (at > free) continue;
            free = at - 15;
            write(left - 8, at + 4, "end", text(units.shown(this.axes.y, value), 6));
        }
        const title = (symbol) => `${symbol} / ${units.label(symbol)}`;
        write(right, bottom + 37, "end", title(this.axes.x)).attr("class", "title");
        write(0, 0, "end", title(this.axes.y)).attr("class", "title").attr("transform", `translate(13,${top})rotate(-90)`);
    }

    // Pinned states joined by processes, and the state of the calculator.
    #drawMarks() {
        const { states } = this.page.pins;
        this.marks.selectAll("*").remove();
        states.slice(1).forEach((to, k) => {
            const points = this.#pixels(drawing.process(states[k], to)).map(([x, y]) => `${x.toFixed(1)},${y.toFixed(1)}`);
            this.marks.append("path").attr("class", "process").attr("d", `M${points.join("L")}`);
        });
        const { state } = this.page.calculator;
        if (state?.ok) {
            const [x, y] = this.#spot(state);
            this.marks.append("circle").attr("class", "given-mark").attr("cx", x).attr("cy", y).attr("r", 6);
        }
        states.forEach((pinned, k) => {
            const [x, y] = this.#spot(pinned);
            const mark = this.marks.append("g").attr("class", "pin").attr("transform", `translate(${x},${y})`);
            mark.append("circle").attr("r", 4.5);
            mark.append("text").attr("x", 8).attr("y", -7).text(k + 1);
        });
    }

    // The state where the pointer is, or on the line of a constant property through the last pinned state.
    #stateAt([u, v]) {
        const given = { [this.axes.y]: drawing.valueAt("y", v), [this.axes.x]: drawing.valueAt("x", u) };
        const { constant, family } = this.page.model;
        const last = this.page.pins.states.at(-1);
        if (constant && last) {
            if (!(constant in given)) delete given[this.axes.y];
            given[constant] = last.of(constant);
        }
        const [[first, a], [second, b]] = Object.entries(given);
        return new State(new Recipe(first, a, second, b, family));
    }

    #point(pixels) {
        const { left, right, top, bottom } = this.box;
        const [x, y] = pixels;
        if (x < left || x > right || y < top || y > bottom) return this.#leave();
        this.pixels = pixels;
        const started = performance.now();
        this.pointed = this.#stateAt(this.#placeAt(pixels));
        this.cross.attr("d", `M${left},${y}H${right}M${x},${top}V${bottom}`);
        this.readout.show(this.pointed, pixels, this.box);
        this.host.dataset.hover = performance.now() - started;  // milliseconds
    }

    #leave() {
        this.pointed = null;
        this.cross.attr("d", null);
        this.readout.hide();
    }

    #pin() {
        if (this.pointed?.ok) this.page.pin(this.pointed.recipe);
    }

    #key(event) {
        const { left, right, top, bottom } = this.box;
        const arrows = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };
        const arrow = arrows[event.key];
        if (event.ctrlKey || event.metaKey || event.altKey) return;
        if (arrow && event.shiftKey) {
            this.svg.call(this.zoom.translateBy, -60 * arrow[0] / this.transform.k, -60 * arrow[1] / this.transform.k);
        } else if (arrow) {
            const [x, y] = this.pixels ?? [(left + right) / 2, (top + bottom) / 2];
            const within = (value, low, high) => Math.min(high, Math.max(low, value));
            this.#point([within(x + step * arrow[0], left, right), within(y + step * arrow[1], top, bottom)]);
            this.readout.say(this.pointed);
        } else if (event.key === "+" || event.key === "=") this.#scale(1.6);
        else if (event.key === "-") this.#scale(1 / 1.6);
        else if (event.key === "0") this.svg.call(this.zoom.transform, zoomIdentity);
        else if (event.key === "Enter" || event.key === " ") this.#pin();
        else if (event.key === "Escape") this.#leave();
        else return;
        event.preventDefault();
    }
}
