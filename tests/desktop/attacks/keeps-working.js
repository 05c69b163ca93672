const scriptRan = true;
