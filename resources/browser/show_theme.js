// Tells a page of the program whether the theme is dark, before anything of it is painted and
// whenever that changes. %DARK% is true or false.
"use strict";
(() => {
    const show = () => document.documentElement.classList.toggle("dark", %DARK%);
    if (document.documentElement) {
        show();
        return;
    }
    const observer = new MutationObserver(() => {
        if (!document.documentElement)
            return;
        observer.disconnect();
        show();
    });
    observer.observe(document, { childList: true });
})();
