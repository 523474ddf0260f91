// SPDX-License-Identifier: MIT
//
// States, by the library as WebAssembly.
import bytes from "vaprix.wasm";
import { codeNamed, indexOf, properties, sloped, variables } from "./catalogue.js";

let library, memory;
export async function load() {
    const { instance } = await WebAssembly.instantiate(bytes, {
        wasi_snapshot_preview1: { proc_exit(status) { throw new Error(`exit ${status}`); } },
    });
    library = instance.exports;
    library._initialize();
    memory = library.memory;
}
export const wasm = () => library;

function textAt(address) {
    const octets = new Uint8Array(memory.buffer, address);
    return new TextDecoder().decode(octets.subarray(0, octets.indexOf(0)));
}
export const numbersAt = (address, count) => new Float64Array(memory.buffer, address, count).slice();

const letter = (symbol) => symbol.charCodeAt(0);

// How many states two variables may have; 0 if they are no pair.
export const branches = (first, second) => library.branches(letter(first), letter(second));

// What a state is asked for by: two variables with values in the catalogue's units, family and branch.
export class Recipe {
    constructor(first, a, second, b, family = "O", branch = 0) {
        Object.assign(this, { first, a, second, b, family, branch });
    }
    toString() {
        return [this.first + this.second, this.a, this.b, this.family, this.branch].join("_");
    }
    // null of what no recipe reads like
    static parse(text) {
        const [pair, a, b, family, branch] = text.split("_");
        const known = (symbol) => variables.some((variable) => variable.symbol === symbol);
        const recipe = new Recipe(pair[0], Number(a || NaN), pair[1], Number(b || NaN), family, Number(branch || 0));
        return pair.length === 2 && known(pair[0]) && known(pair[1]) && Number.isFinite(recipe.a + recipe.b) &&
            "OB".includes(family || "-") && branches(pair[0], pair[1]) > recipe.branch && recipe.branch >= 0
            ? recipe : null;
    }
}

export class State {
    constructor(recipe) {
        this.recipe = recipe;
        this.code = resolve(recipe);
        if (this.code !== 0) return;
        this.region = library.region();
        this.phase = textAt(library.phase_in_words());
        this.place = textAt(library.region_in_words());
        this.superheat = library.superheat();
        this.values = numbersAt(library.properties(0), properties.length);
    }
    get ok() {
        return this.code === 0;
    }
    of(symbol) {
        return this.values[indexOf(symbol)];
    }
    // Makes it the state that the library was asked for last.
    recall() {
        resolve(this.recipe);
    }
    // Properties of the phases of wet steam.
    phases() {
        this.recall();
        return [1, 2].map((phase) => numbersAt(library.properties(phase), properties.length));
    }
    // (dz/dx)_y, of y = "line" along the saturation line
    derivative(z, x, y) {
        this.recall();
        const [dz, dx, at] = [z, x, y].map((symbol) => sloped.indexOf(symbol));
        return y === "line" ? library.along_line(dz, dx) : library.derivative(dz, dx, at);
    }
    // The code that says why the state has no such property.
    whyNot(symbol) {
        if (symbol === "x" || symbol === "sigma") return codeNamed("not_wet_steam");
        if (this.region === 4) return codeNamed("wet_steam_undefined");
        return codeNamed(symbol === "n" ? "refractive_range" : "property_range");
    }
}

function resolve({ first, second, a, b, family, branch }) {
    return library.resolve(letter(first), letter(second), a, b, family === "B" ? 1 : 0, branch);
}
