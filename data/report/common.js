/* What the pages of the report share: addresses of files, numbers and the clipboard. The pages work without it. */
var Report = (function () {
  'use strict';
  // Ferncastle's own view opens addresses such as c:\dir\page.htm, for all drives. Other browsers need file addresses.
  var isOwnView = /\bQtWebEngine\//.test(navigator.userAgent);
  var isWindows = /^\/[A-Za-z]:\//.test(location.pathname);

  function fileUrl(path) {
    var parts = path.replace(/\\/g, '/').replace(/^([^\/])/, '/$1').split('/');
    return 'file://' + parts.map(encodeURIComponent).join('/').replace(/^\/([A-Za-z])%3A/, '/$1:');
  }

  // The form in which the system writes the path of a file; empty when that cannot be told.
  function hostPath(path) {
    if (isWindows) return path;
    // Drive c: is the root of the machine. What other drives stand for is known to the program alone.
    return /^c:[\\\/]/i.test(path) ? path.slice(2).replace(/\\/g, '/') : '';
  }

  // The folder that holds this page under the path end; empty when the page lies elsewhere.
  function folderOf(end) {
    var place = '';
    try {
      if (location.protocol === 'file:' && !isWindows) place = decodeURIComponent(location.pathname);
    } catch (error) {
      place = '';
    }
    return place.slice(-end.length - 1) === '/' + end ? place.slice(0, -end.length) : '';
  }

  // What a link to a file of the program's form must hold; empty when this browser cannot open the file.
  function linkTo(path) {
    if (!/^[a-z]:[\\\/]/i.test(path)) return '';
    if (isOwnView) return path.replace(/%/g, '%25');
    var host = hostPath(path);
    return host && fileUrl(host);
  }

  // 12345.5 becomes 12,345.5.
  function grouped(number) {
    return String(number).replace(/^\d+/, function (digits) {
      return digits.replace(/\B(?=(\d{3})+$)/g, ',');
    });
  }

  function many(number, one) {
    return grouped(number) + ' ' + one + (number === 1 ? '' : 's');
  }

  function make(tag, className, text) {
    var element = document.createElement(tag);
    if (className) element.className = className;
    if (text !== undefined) element.textContent = text;
    return element;
  }

  function button(text, onClick) {
    var element = make('button', '', text);
    element.type = 'button';
    element.addEventListener('click', onClick);
    return element;
  }

  function copyByCommand(text) {
    var isCopied = false;
    function put(event) {
      event.clipboardData.setData('text/plain', text);
      event.preventDefault();
      isCopied = true;
    }
    document.addEventListener('copy', put);
    try {
      document.execCommand('copy');
    } catch (error) {
      isCopied = false;
    }
    document.removeEventListener('copy', put);
    return isCopied;
  }

  // Calls done(true) when the text is on the clipboard, and done(false) when the browser does not allow it.
  function copy(text, done) {
    // A view that lets pages write to the clipboard only by the older command rejects the promise.
    if (navigator.clipboard && navigator.clipboard.writeText)
      navigator.clipboard.writeText(text).then(function () {
        done(true);
      }, function () {
        done(copyByCommand(text));
      });
    else
      done(copyByCommand(text));
  }

  function save(text, name) {
    var link = document.createElement('a');
    link.href = URL.createObjectURL(new Blob([text], {type: 'text/csv;charset=utf-8'}));
    link.download = name;
    document.body.appendChild(link);
    link.click();
    document.body.removeChild(link);
    // The browser may still ask where to save the file.
    setTimeout(function () { URL.revokeObjectURL(link.href); }, 600000);
  }

  return {
    isOwnView: isOwnView, fileUrl: fileUrl, hostPath: hostPath, folderOf: folderOf, linkTo: linkTo, grouped: grouped,
    many: many, make: make, button: button, copy: copy, save: save
  };
})();
