// SPDX-License-Identifier: MIT
// The pages are dark where the system is: Debian's style sheet of the theme has the colours, but does not ask.
const dark = matchMedia("(prefers-color-scheme: dark)");

function follow() {
    document.body.dataset.theme = dark.matches ? "dark" : "light";
}

dark.addEventListener("change", follow);
document.addEventListener("DOMContentLoaded", follow);
