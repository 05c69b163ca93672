postMessage('works');
