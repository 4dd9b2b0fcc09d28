// Brings the block of a node into sight: of the first of %NODES% that has one.
"use strict";
(() => {
    const block = %NODES%.map((number) => document.querySelector(`[data-node="${number}"]`))
        .find(Boolean);
    if (!block)
        return;
    for (let at = block.parentElement; at; at = at.parentElement) {
        const mark = at.querySelector(":scope > .c > [aria-expanded=false]");
        if (mark)
            mark.click();
    }
    const line = block.querySelector(":scope > .c") ?? block;
    function show() {
        const { top } = line.getBoundingClientRect();
        if (top < 0 || top > innerHeight - 20)
            scrollBy({ top: top - innerHeight / 3, behavior: "instant" });
    }
    show();
    // What comes into sight for the first time gets its true height only then.
    requestAnimationFrame(() => {
        show();
        requestAnimationFrame(show);
    });
})();
