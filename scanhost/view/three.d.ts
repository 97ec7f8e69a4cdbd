// What the check of the page's scripts knows of three.js: that it is there.
declare const THREE: any;
