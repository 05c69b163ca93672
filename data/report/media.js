/* Folds away the types that do not occur, and sorts. Without it the table is shown as it was written. */
(function () {
  'use strict';
  var table = document.getElementById('t'), body = table.tBodies[0], heads = table.tHead.rows[0].cells;
  var rows = Array.from(body.rows), zeros = 0, types = 0, note = document.getElementById('s');
  if (!rows.length) {
    note.className = 'none';
    note.textContent = '';
    note.appendChild(Report.make('b', '', 'Nothing to list here. '));
    note.appendChild(document.createTextNode('The list of media types is empty, so no files were counted.'));
    table.hidden = true;
    return;
  }
  var entries = rows.map(function (row, i) {
    var values = Array.from(row.cells).map(function (cell) { return cell.textContent.trim(); });
    if (values.length !== 3) {
      row.className = 'rule';
      return {row: row, place: i, isRule: true};
    }
    types++;
    if (values[1] === '0' && values[2] === '0') {
      row.className = 'zero';
      zeros++;
    }
    row.cells[1].textContent = Report.grouped(values[1]);
    row.cells[2].textContent = Report.grouped(values[2]);
    return {row: row, place: i, values: [values[0], +values[1] || 0, +values[2] || 0]};
  });

  // With many types folded away, a rule between others that are folded away separates nothing.
  function showRules() {
    var hasRows = false, rule = null;
    rows.forEach(function (row) {
      if (row.className === 'rule') {
        row.hidden = true;
        rule = hasRows ? row : null;
        hasRows = hasRows && !rule;
      } else if (row.className !== 'zero' || !table.classList.contains('few')) {
        if (rule) rule.hidden = false;
        rule = null;
        hasRows = true;
      }
    });
  }

  function sortBy(column, order) {
    entries.sort(function (a, b) {
      if (!order || a.isRule && b.isRule) return a.place - b.place;
      if (a.isRule || b.isRule) return a.isRule ? 1 : -1;
      var x = a.values[column], y = b.values[column];
      return (x < y ? -1 : x > y ? 1 : 0) * order || a.place - b.place;
    });
    entries.forEach(function (entry) { body.appendChild(entry.row); });
    table.classList.toggle('sorted', order !== 0);
    Array.from(heads).forEach(function (head, i) {
      head.setAttribute('aria-sort', i !== column || !order ? 'none' : order > 0 ? 'ascending' : 'descending');
    });
  }

  // Numbers begin with the largest; a third click brings back the order of the list.
  Array.from(heads).forEach(function (head, column) {
    var first = column ? -1 : 1, text = head.textContent;
    var button = Report.button(text, function () {
      var now = head.getAttribute('aria-sort');
      var order = now === 'ascending' ? 1 : now === 'descending' ? -1 : 0;
      sortBy(column, order === 0 ? first : order === first ? -first : 0);
    });
    button.title = 'Sort by ' + text.toLowerCase();
    head.textContent = '';
    head.appendChild(button);
    head.setAttribute('aria-sort', 'none');
  });

  if (zeros) {
    var more = Report.make('div', 'more'), words = Report.make('span');
    var toggle = Report.button('', function () {
      table.classList.toggle('few');
      tell();
    });
    var tell = function () {
      var isFolded = table.classList.contains('few');
      words.textContent = (zeros === types ? 'No media files or links were found. ' : '') +
        (isFolded ? 'Not shown: ' : '') + Report.many(zeros, 'type') + ' without files and links.';
      toggle.textContent = isFolded ? 'Show' : 'Hide';
      toggle.setAttribute('aria-expanded', String(!isFolded));
      showRules();
    };
    table.classList.add('few');
    more.appendChild(words);
    more.appendChild(toggle);
    table.parentNode.insertBefore(more, table.nextSibling);
    tell();
  }
})();
