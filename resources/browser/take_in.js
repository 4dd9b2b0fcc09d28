// Has the page take in what another one of the same document has. That one has every node from the
// document down to what is new; in place of those that are here already it has blocks of class kept,
// from the first of them to the last.
"use strict";
(() => {
    const numberOf = (block) => Number(block.dataset.node);
    const blockOf = (number) => document.querySelector(`[data-node="${number}"]`);
    const markOf = (block) => block.querySelector(":scope > .c > .b");
    const isShut = (block) => markOf(block)?.getAttribute("aria-expanded") === "false";

    // The blocks from one to another one, which are siblings.
    function run(blocks, from, to) {
        const found = [];
        for (let at = blocks.get(from); at; at = at.nextElementSibling) {
            found.push(at);
            if (numberOf(at) === to)
                break;
        }
        return found;
    }
    // Where nodes have come or gone ahead of a run, all paths in it begin otherwise.
    function moveTo(path, blocks) {
        const parts = path.split(".");
        const base = parts.slice(0, -1).join(".") + ".";
        const first = Number(parts.at(-1));
        for (const [index, block] of blocks.entries()) {
            const name = block.querySelector("[id]");
            const now = base + (first + index);
            if (!name || name.id === now)
                continue;
            const length = name.id.length;
            for (const at of block.querySelectorAll("[id]"))
                at.id = now + at.id.slice(length);
        }
    }
    function shutLike(old, fresh) {
        for (const block of [old, ...old.querySelectorAll("[data-node]")]) {
            const number = numberOf(block);
            const same = numberOf(fresh) === number ? fresh
                : fresh.querySelector(`[data-node="${number}"]`);
            if (same && isShut(block) && markOf(same) && !isShut(same))
                markOf(same).click();
        }
    }
    // The line with a start tag, if it says something new.
    function tagLine(old, fresh) {
        const mark = old && old.querySelector(":scope > .b");
        const newMark = fresh.querySelector(":scope > .b");
        if (mark && newMark && mark.hasAttribute("role") && newMark.hasAttribute("role")) {
            newMark.textContent = mark.textContent;
            newMark.setAttribute("aria-expanded", mark.getAttribute("aria-expanded"));
        }
        return old && old.isEqualNode(fresh) ? old : fresh;
    }
    function put(parent, wanted) {
        const kept = new Set(wanted);
        for (const old of [...parent.children]) {
            if (!kept.has(old))
                old.remove();
        }
        let place = parent.firstElementChild;
        for (const block of wanted) {
            if (block === place)
                place = place.nextElementSibling;
            else
                parent.insertBefore(block, place);
        }
    }
    function takeIn(old, fresh) {
        const blocks = new Map([...old.children].filter((at) => at.dataset.node)
            .map((at) => [numberOf(at), at]));
        const shut = isShut(old);
        const wanted = [];
        const replaced = [];
        for (const at of [...fresh.children]) {
            const same = at.dataset.node && blocks.get(numberOf(at));
            if (at.matches(".kept")) {
                const found = run(blocks, numberOf(at), Number(at.dataset.last));
                moveTo(at.dataset.path, found);
                wanted.push(...found);
                continue;
            }
            if (same && at.querySelector(".kept")) {
                takeIn(same, at);
                wanted.push(same);
                continue;
            }
            const isLine = at.matches(".c");
            const block = isLine ? tagLine(old.querySelector(":scope > .c"), at) : at;
            if (same)
                replaced.push([same, block]);
            if (!isLine)
                block.classList.toggle("shut", shut);
            wanted.push(block);
        }
        put(old, wanted);
        for (const [before, block] of replaced)
            shutLike(before, block);
    }

    const page = new DOMParser().parseFromString(%PAGE%, "text/html");
    // What stays where it is on the screen; load_more.js may have said what.
    const held = globalThis.held?.isConnected ? globalThis.held
        : document.elementFromPoint(innerWidth / 2, 1)?.closest("[data-node]:not(.more)");
    globalThis.held = null;
    const number = held && numberOf(held);
    const offset = held && held.getBoundingClientRect().top;
    takeIn(document.body.firstElementChild, page.body.firstElementChild);
    function scroll() {
        const block = held && blockOf(number);
        if (block)
            scrollBy({ top: block.getBoundingClientRect().top - offset, behavior: "instant" });
    }
    scroll();
    document.dispatchEvent(new Event("quillon-taken-in"));
})();
