// Sorts a table by the column whose heading is pressed, by mouse or keyboard; pressed again, the other way round.
'use strict';

function keyOf(row, column) {
  const cell = row.cells[column];
  const value = cell.dataset.value;
  return value === undefined ? { text: cell.textContent } : { number: value === '' ? Infinity : Number(value) };
}

function compareKeys(one, other) {
  if (one.text !== undefined) return one.text.localeCompare(other.text);
  return one.number === other.number ? 0 : one.number < other.number ? -1 : 1;
}

// Rows without a value stay last in both directions.
function sortTable(table, heading) {
  const body = table.tBodies[0];
  const column = heading.cellIndex;
  const isDescending = heading.getAttribute('aria-sort') === 'ascending';
  const rows = Array.from(body.rows, row => ({ row, key: keyOf(row, column) }));
  rows.sort((one, other) => {
    const order = compareKeys(one.key, other.key);
    const isLast = one.key.number === Infinity || other.key.number === Infinity;
    return isDescending && !isLast ? -order : order;
  });
  for (const other of table.tHead.rows[0].cells) other.removeAttribute('aria-sort');
  heading.setAttribute('aria-sort', isDescending ? 'descending' : 'ascending');
  body.append(...rows.map(item => item.row));
}

// Without this script the headings are plain texts.
for (const table of document.querySelectorAll('table.sortable')) {
  for (const heading of table.tHead.rows[0].cells) {
    if (heading.classList.contains('unsorted')) continue;
    const button = document.createElement('button');
    button.type = 'button';
    button.append(...heading.childNodes);
    button.addEventListener('click', () => sortTable(table, heading));
    heading.append(button);
  }
}
