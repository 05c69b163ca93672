/* Groups digits, draws the links as a bar and says what an empty result may mean. Without it the page stays as it was
   written. */
(function () {
  'use strict';
  var make = Report.make;
  function at(id) { return document.getElementById(id); }
  function numberIn(cell) { return parseFloat(cell.textContent) || 0; }
  function countOf(id) { return numberIn(at(id).closest('tr').querySelector('.n')); }
  var counts = {};
  ['processed', 'added', 'internal', 'external', 'broken', 'media', 'mediafiles'].forEach(function (id) {
    counts[id] = countOf(id);
  });

  document.querySelectorAll('.broken').forEach(function (cell) {
    if (numberIn(cell) > 0) cell.classList.add('bad');
  });
  document.querySelectorAll('.num,.card .n').forEach(function (cell) {
    cell.textContent = Report.grouped(cell.textContent.trim());
  });

  // A tile leads to the page of its links or, if there is none, to its row.
  var brokenPage = at('broken').closest('tr').querySelector('.d a');
  if (brokenPage) at('broken-tile').href = brokenPage.getAttribute('href');
  function showRow() {
    var row = location.hash.length > 1 && at(location.hash.slice(1));
    document.querySelectorAll('.shown').forEach(function (old) { old.classList.remove('shown'); });
    if (row && row.closest('.sum')) row.closest('tr').classList.add('shown');
  }
  window.addEventListener('hashchange', showRow);
  showRow();

  // The new site lies beside the folder of this page, whatever the drive that the program has written.
  var cell = at('new'), link = cell.querySelector('a'), path = (link || cell.firstChild).textContent.trim();
  var host = Report.hostPath(path), number = path.split(/[\\\/]/).slice(-2)[0];
  var here = Report.folderOf(number + '_store/report.html');
  if (here) host = here + number + '/';
  if (host && host !== path) {
    var line = make('div', 'host'), copyButton = Report.button('Copy', function () {
      Report.copy(host, function (isCopied) { copyButton.textContent = isCopied ? 'Copied' : 'Cannot copy'; });
    });
    line.appendChild(make('span', 'path', host));
    line.appendChild(copyButton);
    cell.insertBefore(line, cell.querySelector('.cap'));
  }
  if (link && !Report.isOwnView && host && link.getAttribute('href').indexOf(path) === 0)
    link.href = Report.fileUrl(host + link.getAttribute('href').slice(path.length).replace(/\\/g, '/'));

  // The four kinds exclude each other.
  var kinds = [['Internal', counts.internal], ['External', counts.external], ['Broken', counts.broken],
    ['Media', counts.media]];
  var total = counts.internal + counts.external + counts.broken + counts.media;
  // In tenths of a percent. Those that are rounded down most get what is missing to 100 %.
  function sharesOf(counts) {
    var exact = counts.map(function (count) { return 1000 * count / total; }), shares = exact.map(Math.floor);
    var order = exact.map(function (share, i) { return i; }).sort(function (a, b) {
      return exact[b] - shares[b] - (exact[a] - shares[a]);
    });
    var missing = 1000 - shares.reduce(function (sum, share) { return sum + share; });
    order.slice(0, missing).forEach(function (i) { shares[i]++; });
    return shares;
  }
  function percent(count, share) {
    return (count && !share ? 'under 0.1' : String(share / 10)) + ' %';
  }
  if (total) {
    var shares = sharesOf(kinds.map(function (kind) { return kind[1]; }));
    var strip = make('div', 'strip'), list = make('ul');
    strip.setAttribute('aria-hidden', 'true');
    kinds.forEach(function (kind, i) {
      var part = make('i', 'k' + i), item = make('li'), words = kind[0] + ' links ';
      part.style.flex = kind[1] + ' 1 0';
      part.title = words + Report.grouped(kind[1]);
      if (kind[1]) strip.appendChild(part);
      item.appendChild(make('i', 'k' + i));
      item.appendChild(document.createTextNode(words));
      item.appendChild(make('b', '', Report.grouped(kind[1])));
      item.appendChild(document.createTextNode(' (' + percent(kind[1], shares[i]) + ')'));
      list.appendChild(item);
    });
    var mix = make('div', 'mix'), table = document.querySelector('.sum');
    mix.appendChild(strip);
    mix.appendChild(list);
    table.parentNode.insertBefore(mix, table);
  }

  function explain(heading, text) {
    var box = make('div', 'why'), tiles = document.querySelector('.key');
    box.appendChild(make('b', '', heading));
    box.appendChild(make('p', '', text));
    tiles.parentNode.insertBefore(box, tiles.nextSibling);
  }
  var site = at('old').textContent.trim();
  if (!counts.processed && counts.mediafiles)
    explain('No page passed the filters.', 'Ferncastle found ' + Report.many(counts.mediafiles, 'media file') +
      ', so it could read the folder ' + site + ', but it read no page there. Check the file filters, and whether ' +
      'this is the folder of your pages.');
  else if (!counts.processed)
    explain('No page was found.', 'Probably the folder ' + site + ' could not be read, it is empty, or no file in it ' +
      'passed the filters. The counts are also 0 when the run was canceled before its first page.');
  else if (!counts.added && !total)
    explain('No links were found.', 'The pages that were read hold no links that Ferncastle follows, so it had no ' +
      'pages to add.');
  else if (!counts.added)
    explain('No pages were added.', (counts.broken > counts.external ?
      'Most links lead to files that were not found. Probably ' + site + ' is not the top folder of your site, or the ' +
      'pages that they lead to are missing there.' :
      'No link leads to a page of your site. If you expected some, check whether the domain name is spelled as in ' +
      'your links.') + ' If the run showed messages that it was unable to copy pages, their new names may be too ' +
      'long: the keywords of a name may have about 240 letters together. Then choose fewer keywords for each name, ' +
      'or shorter ones.');
})();
