// SPDX-License-Identifier: MIT
//
// Labels of lines, one for each level, where they meet no other.
const apart = 15;       // pixels between labels
const shortest = 90;    // pixels of a line that has a label
const parts = [0.72, 0.5, 0.3, 0.85, 0.15];  // of a line, where its label may be

// Lines with `pixels`, a list of points, and `label`; draws by `pen` within the box.
export function drawLabels(pen, lines, box, colorOf, fonts) {
    pen.font = `11px ${fonts}`;
    pen.textAlign = "center";
    pen.textBaseline = "middle";
    pen.setLineDash([]);
    const isInside = ([x, y]) => x > box.left + 4 && x < box.right - 4 && y > box.top + 6 && y < box.bottom - 6;
    const taken = [], done = new Set();
    const measured = lines.map((line) => ({ ...line, lengths: lengthsOf(line.pixels) }))
        .filter(({ lengths }) => lengths.at(-1) > shortest).sort((a, b) => b.lengths.at(-1) - a.lengths.at(-1));
    for (const line of measured) {
        const key = `${line.kind} ${line.level}`;
        if (done.has(key)) continue;
        const half = pen.measureText(line.label).width / 2 + 3;
        for (const part of parts) {
            const { x, y, angle } = along(line, part * line.lengths.at(-1), half);
            const covered = [-1, -0.5, 0, 0.5, 1].map((t) => [x + t * half * Math.cos(angle), y + t * half * Math.sin(angle)]);
            const isFree = covered.every(([a, b]) => taken.every(([c, d]) => Math.hypot(a - c, b - d) > apart));
            if (!isFree || !covered.every(isInside)) continue;
            taken.push(...covered);
            done.add(key);
            write(pen, line.label, x, y, angle, colorOf(line.kind), colorOf("ground"));
            break;
        }
    }
}

function write(pen, label, x, y, angle, ink, ground) {
    pen.save();
    pen.translate(x, y);
    pen.rotate(angle);
    pen.lineWidth = 4;
    pen.strokeStyle = ground;
    pen.strokeText(label, 0, 0);
    pen.fillStyle = ink;
    pen.fillText(label, 0, 0);
    pen.restore();
}

function lengthsOf(pixels) {
    const lengths = [0];
    for (let k = 1; k < pixels.length; ++k)
        lengths.push(lengths[k - 1] + Math.hypot(pixels[k][0] - pixels[k - 1][0], pixels[k][1] - pixels[k - 1][1]));
    return lengths;
}

// The point at a length, and the angle of the line there as text is read.
function along({ pixels, lengths }, length, half) {
    const pointAt = (wanted) => {
        const found = lengths.findIndex((sum) => sum >= wanted);
        const k = found < 0 ? lengths.length - 1 : Math.max(1, found);
        const t = (wanted - lengths[k - 1]) / (lengths[k] - lengths[k - 1] || 1);
        return [0, 1].map((i) => pixels[k - 1][i] + t * (pixels[k][i] - pixels[k - 1][i]));
    };
    const [[a, b], [c, d]] = [pointAt(length - half), pointAt(length + half)];
    let angle = Math.atan2(d - b, c - a);
    if (Math.abs(angle) > Math.PI / 2) angle -= Math.sign(angle) * Math.PI;
    const [x, y] = pointAt(length);
    return { x, y, angle };
}
