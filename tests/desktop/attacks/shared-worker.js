fetch(decodeURIComponent(location.hash.slice(1)), {mode: 'no-cors'});
