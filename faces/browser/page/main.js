// SPDX-License-Identifier: MIT
//
// The page: what it shows is in one model, whose every change is rendered whole and written to the address.
import { Calculator } from "./calculator.js";
import { unitNamed, Units } from "./catalogue.js";
import { Chart } from "./chart.js";
import { copy } from "./html.js";
import { read, written } from "./link.js";
import { Pins } from "./pins.js";
import { load, State } from "./water.js";

const pause = 150;  // milliseconds without a change before the address is written

function usual() {
    const [MPa, celsius] = [unitNamed("MPa", "MPa"), unitNamed("K", "C")];
    const units = new Units();
    units.choose(celsius);
    return {
        given: [{ symbol: "p", text: "15", unit: MPa }, { symbol: "T", text: "600", unit: celsius }],
        family: "O", branch: 0, units, derivative: ["d", "h", "p"],
        chart: "ts", view: null, shows: null, pins: [], compared: null, constant: "",
    };
}

class Page {
    constructor() {
        this.#open();
        this.pins = new Pins(this);
        this.calculator = new Calculator(this);
        this.chart = new Chart(this);
        document.getElementById("copy-link").addEventListener("click", (event) => this.copy(this.link, event.target));
        addEventListener("hashchange", () => {
            if (location.hash === this.saved) return;
            this.#open();
            this.render();
        });
        this.render();
    }

    #open() {
        this.model = usual();
        read(location.hash, this.model);
        this.model.pins = this.model.pins.filter((recipe) => new State(recipe).ok);
    }

    get link() {
        return location.href.split("#")[0] + written(this.model);
    }

    change(change) {
        Object.assign(this.model, change);
        this.render();
        this.save();
    }

    render() {
        this.calculator.render();
        this.pins.render();
        this.chart.render();
    }

    save() {
        clearTimeout(this.timer);
        this.timer = setTimeout(() => {
            this.saved = written(this.model);
            history.replaceState(null, "", this.saved);
        }, pause);
    }

    pin(recipe) {
        this.change({ pins: [...this.model.pins, recipe], compared: null });
    }

    async copy(text, button) {
        await copy(text);
        clearTimeout(this.thanks);
        this.restore?.();
        button.dataset.label ??= button.textContent;
        button.textContent = "Copied";
        this.restore = () => { button.textContent = button.dataset.label; };
        this.thanks = setTimeout(this.restore, 1200);
    }
}

load().then(() => {
    new Page();
    document.documentElement.dataset.ready = performance.now();
});
