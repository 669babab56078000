'use strict';
(() => {
    const input = document.getElementById('search');
    const found = document.getElementById('found');
    const reason = document.getElementById('reason');
    const entries = [...document.querySelectorAll('[data-search]')].map(
        element => ({ element, text: element.textContent.toLowerCase() }));

    // Every word of the search has to occur, in any order.
    function search() {
        const words = input.value.toLowerCase().split(/\s+/).filter(word => word !== '');
        let rolls = 0;
        for (const { element, text } of entries) {
            const shown = words.every(word => text.includes(word));
            if (element.hidden === shown)
                element.hidden = !shown;
            if (shown && element.dataset.search === 'roll')
                rolls += 1;
        }
        found.textContent = words.length === 0 ? '' : rolls === 1 ? '1 roll' : `${rolls} rolls`;
    }

    // Typing is not held up: the search runs once the keys rest.
    let waiting = 0;
    input.addEventListener('input', () => {
        clearTimeout(waiting);
        waiting = setTimeout(search, 120);
    });
    input.form.addEventListener('submit', event => event.preventDefault());
    search();

    // Each picture is in the page once; the cards show it when they come into view.
    const pictures = new Map(
        [...document.querySelectorAll('[data-picture-id]')].map(image => [image.dataset.pictureId, image.src]));
    const coming = new IntersectionObserver(seen => {
        for (const { isIntersecting, target } of seen) {
            if (!isIntersecting)
                continue;
            coming.unobserve(target);
            if (pictures.has(target.dataset.picture))
                target.src = pictures.get(target.dataset.picture);
        }
    }, { rootMargin: '400px' });
    for (const image of document.querySelectorAll('[data-picture]'))
        coming.observe(image);

    // The reasons, for fingers and keys too.
    const table = document.querySelector('#matrix table');
    if (!table)
        return;
    const explain = cell => {
        reason.hidden = !cell;
        reason.textContent = cell ? cell.title : '';
    };
    const first = table.querySelector('td');
    if (first)
        first.tabIndex = 0;
    table.addEventListener('focusin', event => explain(event.target.closest('td')));
    table.addEventListener('focusout', () => explain(null));
    table.addEventListener('click', event => {
        const cell = event.target.closest('td');
        if (cell) {
            cell.tabIndex = -1;
            cell.focus();
            explain(cell);
        }
    });
    const steps = { ArrowLeft: [0, -1], ArrowRight: [0, 1], ArrowUp: [-1, 0], ArrowDown: [1, 0] };
    table.addEventListener('keydown', event => {
        const cell = event.target.closest('td');
        if (event.key === 'Escape' && cell)
            cell.blur();
        const step = steps[event.key];
        if (!cell || !step)
            return;
        event.preventDefault();
        let row = cell.parentElement;
        if (step[0] !== 0) {
            do {
                row = step[0] > 0 ? row.nextElementSibling : row.previousElementSibling;
            } while (row && row.hidden);
        }
        const next = row && row.cells[cell.cellIndex + step[1]];
        if (next && next.tagName === 'TD') {
            cell.tabIndex = -1;
            next.tabIndex = 0;
            next.focus();
        }
    });
})();
