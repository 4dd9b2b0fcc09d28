// Counterpart of keep_place.js, whose result stands for %PLACE%. %SCROLLS% is false where the page
// is not to be scrolled as far.
"use strict";
(() => {
    const place = %PLACE%;
    const blockOf = (number) => document.querySelector(`[data-node="${Number(number)}"]`);
    for (const number of place.folded) {
        const block = blockOf(number);
        const mark = block && block.querySelector(":scope > .c > [aria-expanded=true]");
        if (mark)
            mark.click();
    }
    if (!%SCROLLS%)
        return;
    function scroll() {
        const top = place.y > 0 && place.topNode ? blockOf(place.topNode) : null;
        const y = top ? scrollY + top.getBoundingClientRect().top - place.topOffset : place.y;
        scrollTo({ left: place.x, top: y, behavior: "instant" });
    }
    scroll();
    // What comes into sight for the first time gets its true height only then.
    requestAnimationFrame(() => {
        scroll();
        requestAnimationFrame(scroll);
    });
    addEventListener("load", scroll, { once: true });
})();
