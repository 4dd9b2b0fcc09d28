// What a page that is shown again must not lose: how far it is scrolled and what is folded. The
// blocks of the built-in stylesheet are known by the numbers of their nodes.
"use strict";
(() => {
    const blockOf = (at) => at && at.closest("[data-node]");
    const numberOf = (block) => Number(block.dataset.node);
    const top = blockOf(document.elementFromPoint(innerWidth / 2, 1));
    const folded = [...document.querySelectorAll("[data-node] > .c > [aria-expanded=false]")];
    return JSON.stringify({
        x: scrollX,
        y: scrollY,
        topNode: top ? numberOf(top) : 0,
        topOffset: top ? top.getBoundingClientRect().top : 0,
        folded: folded.map((mark) => numberOf(blockOf(mark))),
    });
})();
