/* Turns the table of a link page into a list by page and a list by target. Without it the table is shown as it is. */
(function () {
  'use strict';
  var table = document.getElementById('t');
  var place = document.getElementById('c').parentNode;
  var words = table.dataset;  // what differs between the pages of external and of broken links
  var pages = [], links = [];
  var area = Report.make('div');
  var make = Report.make, many = Report.many, grouped = Report.grouped;

  // ---- reading the table ----

  // The row of a page holds its path. The row of a link begins with five no-break spaces and holds the whole tag, in
  // which the program has written an acute accent for each apostrophe.
  function readTable() {
    var rows = table.tBodies[0].rows, page = null, i, text;
    for (i = 0; i < rows.length; i++) {
      text = rows[i].textContent;
      if (/^[ \t\r\n]*\u00a0{5}/.test(text)) {
        if (page) addLink(page, text.trim());
      } else if (/[^\s\u00a0]/.test(text)) {
        page = {path: text.trim(), links: []};
        pages.push(page);
      }
    }
  }

  function addLink(page, tag) {
    var found = /\shref=(?:(["\u00b4])([^]*?)(?:\1|$)|([^\s>]*))/i.exec(tag);
    var link = {page: page, tag: tag, written: tag, start: 0, end: 0, target: tag, isHit: true};
    if (found) {
      link.end = found.index + found[0].length - (found[1] && found[0].slice(-1) === found[1] ? 1 : 0);
      link.written = found[1] ? found[2] : found[3];
      link.start = link.end - link.written.length;
      link.target = fullTarget(link.written.trim(), page.path);
    }
    link.text = (page.path + '\n' + tag + '\n' + link.target).toLowerCase();
    page.links.push(link);
    links.push(link);
  }

  // Links of different directories may be written alike and lead to different files, and one file can be written in
  // several ways. A link that began with a slash or with dots is recorded below the domain.
  function fullTarget(target, path) {
    if (words.kind === 'external') return target;
    var parts = [], plain = target.replace(/[?#][^]*$/, '').replace(/\\/g, '/').replace(/^https?:\/\//i, '');
    if (plain === '') return target;
    if (/^[a-z][a-z0-9+.\-]*:/i.test(plain)) return target;
    var isOfDomain = /^(?:[a-z0-9\-]+\.)+[a-z0-9\-]+\//i.test(plain);
    if (!isOfDomain && plain[0] !== '/') plain = path.replace(/[^\\\/]*$/, '').replace(/\\/g, '/') + plain;
    plain.split('/').forEach(function (part) {
      if (part === '..' && parts.length > 1) parts.pop();
      else if (part !== '.') parts.push(part);
    });
    return parts.join(isOfDomain ? '/' : '\\');
  }

  // ---- the two views: groups of items, where each item stands for one link or more ----

  function groupsByPage() {
    return pages.map(function (page) {
      return {
        name: page.path, links: page.links, items: page.links.map(function (link) {
          return {links: [link]};
        })
      };
    });
  }

  function groupsByTarget() {
    var byName = new Map();
    links.forEach(function (link) {
      var key = link.target.toLowerCase().replace(/^www\./, ''), group = byName.get(key), item;
      if (!group) {
        group = {name: link.target || '(an empty link)', links: [], items: [], byPage: new Map()};
        byName.set(key, group);
      }
      group.links.push(link);
      item = group.byPage.get(link.page);
      if (!item) {
        group.byPage.set(link.page, item = {links: []});
        group.items.push(item);
      }
      item.links.push(link);
    });
    // Folded at first, so that the targets can be read as a list.
    byName.forEach(function (group) { group.isFolded = byName.size > 1; });
    return Array.from(byName.values()).sort(function (a, b) {
      return b.links.length - a.links.length || b.items.length - a.items.length || (a.name < b.name ? -1 : 1);
    });
  }

  function View(groups, isByTarget) {
    this.isByTarget = isByTarget;
    this.groups = groups;
    this.built = 0;
    this.root = make('div', isByTarget ? 'list targets' : 'list');
  }

  // Rows out of sight are not laid out. Until then their height is estimated from the length of their text.
  var lineLength = 90;
  function heightOf(item, view) {
    var length = view.isByTarget ? item.links[0].page.path.length : item.links[0].tag.length;
    return 6 + 20 * Math.ceil(length / lineLength);
  }

  // Lets a long path break after its slashes rather than in the middle of a name.
  function addPath(parent, path) {
    path.split(/([\\\/]+)/).forEach(function (part, i) {
      parent.appendChild(document.createTextNode(part));
      if (i % 2) parent.appendChild(make('wbr'));
    });
  }

  function pageLink(path) {
    var address = Report.linkTo(path), element = make(address ? 'a' : 'span');
    if (address) element.setAttribute('href', address);
    addPath(element, path);
    return element;
  }

  function itemElement(item, view) {
    var element = make('li'), link = item.links[0], mark;
    if (view.isByTarget) {
      element.appendChild(pageLink(link.page.path));
      if (item.links.length > 1) element.appendChild(make('small', '', many(item.links.length, 'link')));
      return element;
    }
    if (!link.end) {
      element.textContent = link.tag;
      return element;
    }
    element.appendChild(document.createTextNode(link.tag.slice(0, link.start)));
    mark = make('mark', '', link.tag.slice(link.start, link.end));
    element.appendChild(mark);
    element.appendChild(document.createTextNode(link.tag.slice(link.end)));
    return element;
  }

  function buildGroup(group, view) {
    var head = make('div', 'head'), name = make('h2'), i, chunk;
    group.element = make('div', 'group');
    group.fold = Report.button('', function () { foldOne(group); });
    group.fold.className = 'fold';
    group.fold.setAttribute('aria-expanded', String(!group.isFolded));
    group.fold.setAttribute('aria-label', 'Show the ' + (view.isByTarget ? 'pages of ' : 'links of ') + group.name);
    if (view.isByTarget) addPath(name, group.name);
    else name.appendChild(pageLink(group.name));
    group.badge = make('span', 'badge');
    [group.fold, name, group.badge].forEach(function (part) { head.appendChild(part); });
    group.element.appendChild(head);
    group.chunks = [];
    for (i = 0; i < group.items.length; i++) {
      if (i % 50 === 0) {
        chunk = {element: make('ul'), items: []};
        group.chunks.push(chunk);
        group.element.appendChild(chunk.element);
      }
      group.items[i].element = itemElement(group.items[i], view);
      group.items[i].isShown = true;
      chunk.items.push(group.items[i]);
      chunk.element.appendChild(group.items[i].element);
    }
    showGroup(group, view);
    if (group.isFolded) group.element.classList.add('folded');
    view.root.appendChild(group.element);
  }

  function countHits(theLinks) {
    var count = 0, i;
    for (i = 0; i < theLinks.length; i++) if (theLinks[i].isHit) count++;
    return count;
  }

  // A page without links, as a table with a record cut short may hold it, is found by its path.
  function isGroupHit(group) {
    return countHits(group.links) > 0 || !group.links.length && group.name.toLowerCase().indexOf(query) >= 0;
  }

  // Brings a group in step with the filter.
  function showGroup(group, view) {
    var hits = countHits(group.links), all = group.links.length, height = 46, i, k, chunk, item, shown, rest;
    var isHit = isGroupHit(group);
    if (group.hits === hits && group.isHit === isHit) return;
    group.hits = hits;
    group.isHit = isHit;
    group.element.hidden = !isHit;
    group.badge.textContent = hits === all ? many(all, 'link') : grouped(hits) + ' of ' + grouped(all);
    if (view.isByTarget && group.items.length > 1 && hits === all)
      group.badge.textContent += ' on ' + many(group.items.length, 'page');
    for (i = 0; i < group.chunks.length; i++) {
      chunk = group.chunks[i];
      shown = rest = 0;
      for (k = 0; k < chunk.items.length; k++) {
        item = chunk.items[k];
        if (item.isShown !== countHits(item.links) > 0) {
          item.isShown = !item.isShown;
          item.element.hidden = !item.isShown;
        }
        if (item.isShown) {
          shown++;
          rest += heightOf(item, view);
        }
      }
      chunk.element.hidden = !shown;
      chunk.element.style.containIntrinsicSize = '1px ' + rest + 'px';
      height += rest;
    }
    group.element.style.containIntrinsicSize = '1px ' + height + 'px';
  }

  // Builds the groups that are missing, for as long as a frame lasts, and the rest in the next frames.
  function build(view, isWhole) {
    var end = performance.now() + 12;
    while (view.built < view.groups.length) {
      buildGroup(view.groups[view.built++], view);
      if (!isWhole && performance.now() > end) {
        setTimeout(function () { build(view); }, 0);
        return;
      }
    }
  }

  // ---- what the user does ----

  var current, byPage, byTarget, query = '', box, status, foldAll, tabs = [], wait;

  function tell(text) {
    status.textContent = text;
  }

  function tellCount() {
    var hits = countHits(links), shown = current.groups.filter(isGroupHit).length;
    var ending = (current.isByTarget ? ' to ' : ' on ') + many(shown, current.isByTarget ? 'target' : 'page');
    if (!shown) tell('No link contains this text.');
    else tell((query ? grouped(hits) + ' of ' : '') + many(links.length, 'link') + ending);
  }

  function showAll() {
    for (var i = 0; i < current.built; i++) showGroup(current.groups[i], current);
    tellCount();
  }

  function filter() {
    query = box.value.toLowerCase().trim();
    links.forEach(function (link) { link.isHit = link.text.indexOf(query) >= 0; });
    showAll();
  }

  function setFolded(group, isFolded) {
    group.isFolded = isFolded;
    if (!group.element) return;
    group.element.classList.toggle('folded', isFolded);
    group.fold.setAttribute('aria-expanded', String(!isFolded));
  }

  function foldOne(group) {
    setFolded(group, !group.isFolded);
    // The head of a long group stays in sight while the group is folded from its middle.
    if (group.element.getBoundingClientRect().top < 0) group.element.scrollIntoView();
    showFoldAll();
  }

  function showFoldAll() {
    var isFolded = current.groups.every(function (group) { return group.isFolded; });
    foldAll.textContent = isFolded ? 'Unfold all' : 'Fold all';
  }

  function foldEach() {
    var isFolded = !current.groups.every(function (group) { return group.isFolded; });
    current.groups.forEach(function (group) { setFolded(group, isFolded); });
    showFoldAll();
  }

  function show(view) {
    if (current) current.root.hidden = true;
    if (!view.root.parentNode) area.appendChild(view.root);
    view.root.hidden = false;
    current = view;
    build(view);
    tabs.forEach(function (tab) { tab.setAttribute('aria-pressed', String(tab.isByTarget === view.isByTarget)); });
    showAll();
    showFoldAll();
  }

  function showByTarget() {
    if (!byTarget) byTarget = new View(groupsByTarget(), true);
    show(byTarget);
  }

  function plain(text) {
    return text.replace(/\u00b4/g, "'");
  }

  // The link is as the page has it, with its apostrophes.
  function csv() {
    var rows = [['page', 'link', 'target']];
    current.groups.forEach(function (group) {
      group.links.forEach(function (link) {
        if (link.isHit) rows.push([link.page.path, plain(link.written), plain(link.target)]);
      });
    });
    return rows.map(function (row) {
      return row.map(function (value) { return '"' + value.replace(/"/g, '""') + '"'; }).join(',') + '\r\n';
    }).join('');
  }

  function copyCsv() {
    Report.copy(csv(), function (isCopied) {
      tell(isCopied ? 'Copied ' + many(countHits(links), 'link') + '.' : 'The browser does not allow copying.');
    });
  }

  // With the mark by which spreadsheets tell UTF-8.
  function saveCsv() {
    Report.save('\ufeff' + csv(), words.kind + '-links.csv');
  }

  function addTools() {
    var views = make('span', 'views');
    box = make('input');
    box.type = 'search';
    box.autocomplete = 'off';
    box.placeholder = 'Show only links that contain\u2026';
    box.setAttribute('aria-label', 'Filter the list');
    box.addEventListener('input', function () {
      clearTimeout(wait);
      wait = setTimeout(filter, 120);
    });
    tabs = [Report.button('By page', function () { show(byPage); }), Report.button(words.second, showByTarget)];
    tabs[0].isByTarget = false;
    tabs[1].isByTarget = true;
    tabs.forEach(function (tab) { views.appendChild(tab); });
    foldAll = Report.button('', foldEach);
    [box, views, foldAll, Report.button('Copy as CSV', copyCsv), Report.button('Save as CSV', saveCsv)]
      .forEach(function (tool) { place.insertBefore(tool, status); });
  }

  status = document.getElementById('c');
  readTable();
  if (!pages.length) {
    place.className = 'none';
    status.textContent = '';
    status.appendChild(make('b', '', 'Nothing to list here. '));
    status.appendChild(document.createTextNode(words.empty));
    table.hidden = true;
    return;
  }
  table.parentNode.replaceChild(area, table);
  lineLength = Math.max(20, Math.floor((area.clientWidth - 66) / 7.9));
  byPage = new View(groupsByPage(), false);
  addTools();
  show(byPage);
  window.addEventListener('beforeprint', function () { build(current, true); });
})();
