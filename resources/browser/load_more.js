// Asks the program for the nodes that a page leaves out, when the line in their place comes into
// sight or is clicked. %WORD% begins messages to the program, as in guard.js.
"use strict";
(() => {
    const lines = () => document.querySelectorAll(".more[data-node]");
    if (!document.querySelector(".more"))
        return;

    document.documentElement.classList.add("part");

    // On the way up it is the end of what is left out that comes next, and what is in sight below
    // it stays where it is (take_in.js). At the very top the page begins with the beginning.
    function ask(line) {
        const below = line.nextElementSibling;
        const isUpward = below?.dataset.node && scrollY > 0 &&
            line.getBoundingClientRect().top < innerHeight / 2;
        globalThis.held = isUpward ? below : null;
        console.log("%WORD%m" + Number(line.dataset.node) + (isUpward ? " last" : " first"));
    }
    const seen = new IntersectionObserver((entries) => {
        const entry = entries.find((at) => at.isIntersecting);
        if (entry)
            ask(entry.target);
    }, { rootMargin: "200px" });
    function watch() {
        seen.disconnect();
        for (const line of lines())
            seen.observe(line);
    }
    // Whoever has put more nodes into the page says so.
    document.addEventListener("quillon-taken-in", watch);
    // Ahead of that the page is not where it will be: see restore_place.js and reveal.js.
    function watchAfter(frames) {
        if (frames === 0)
            watch();
        else
            requestAnimationFrame(() => watchAfter(frames - 1));
    }
    addEventListener("load", () => watchAfter(4), { once: true });

    const lineOf = (event) => event.isTrusted && event.target instanceof Element &&
        event.target.closest(".more[data-node]");
    addEventListener("click", (event) => lineOf(event) && ask(lineOf(event)), true);
    addEventListener("keydown", (event) => {
        if (lineOf(event) && (event.key === "Enter" || event.key === " ")) {
            event.preventDefault();
            ask(lineOf(event));
        }
    }, true);
})();
