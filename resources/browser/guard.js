// Runs in a world of its own before anything of the page: the page neither sees it nor can change
// what it uses. %WORD% begins its messages to the program; the page does not know it.
"use strict";
(() => {
    const policy = "default-src 'none'; script-src 'unsafe-inline' 'unsafe-eval'; " +
        "style-src 'unsafe-inline' quillon-preview:; img-src data: quillon-preview:; " +
        "font-src data: quillon-preview:; media-src data: quillon-preview:; base-uri 'none'; " +
        "form-action 'none'";

    // A policy is taken from a head only, which a page of XML need not have.
    function setPolicy() {
        const xhtml = "http://www.w3.org/1999/xhtml";
        const head = document.createElementNS(xhtml, "head");
        const meta = document.createElementNS(xhtml, "meta");
        meta.setAttribute("http-equiv", "Content-Security-Policy");
        meta.setAttribute("content", policy);
        head.append(meta);
        document.documentElement.append(head);
        head.remove();
    }
    if (document.documentElement) {
        setPolicy();
    } else {
        const observer = new MutationObserver(() => {
            if (!document.documentElement)
                return;
            observer.disconnect();
            setPolicy();
        });
        observer.observe(document, { childList: true });
    }

    function tell(kind, text) {
        console.log("%WORD%" + kind + text);
    }
    function linkFrom(event) {
        const link = event.composedPath().find((at) => at instanceof HTMLAnchorElement ||
            at instanceof HTMLAreaElement || at instanceof SVGAElement);
        if (!link)
            return "";
        const href = typeof link.href === "string"
            ? link.href : new URL(link.href.baseVal, document.baseURI).href;
        return /^https?:/i.test(href) ? href : "";
    }
    function followLink(event) {
        const link = linkFrom(event);
        // The page may have a use of its own for the click, which is known afterwards.
        if (link)
            setTimeout(() => event.defaultPrevented || tell("l", link));
    }

    // A click can be trusted that a script has made: a label hands its own on. The release of a
    // button cannot be made by a script.
    let released = null;
    addEventListener("mouseup", (event) => {
        if (event.isTrusted && event.button === 0)
            released = event.target;
    }, true);
    addEventListener("click", (event) => {
        const at = event.target;
        if (!event.isTrusted || !(at instanceof Element) || !released || !at.contains(released))
            return;
        released = null;
        const id = Element.prototype.getAttribute.call(at, "id");
        if (id)
            tell("i", id);
        followLink(event);
    }, true);
    addEventListener("keydown", (event) => {
        if (event.isTrusted && event.key === "Enter" && !event.repeat)
            followLink(event);
    }, true);

    // A page has no say in whether the next one is shown.
    addEventListener("beforeunload", (event) => event.stopImmediatePropagation(), true);
})();
