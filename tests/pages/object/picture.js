// Looked at in a screenshot, with the object in its place or in full screen (`fullScreen`): the film shows through the
// object, elements of the page lie on it.
var video = newObject(FILM);
document.body.style.cssText = 'margin: 0; background: #ff00ff';
video.style.cssText = 'position: absolute; left: 200px; top: 100px; width: 640px; height: 360px';
var over = document.createElement('div');
over.style.cssText =
    'position: absolute; left: 500px; top: 120px; width: 100px; height: 60px; background: rgba(255, 0, 0, 0.5)';
document.body.appendChild(over);
video.play(1);
if (fullScreen) {
  video.setFullScreen(true);
}
// A dozen dots that change at once: nothing between them may be lost.
var dots = [];
for (var i = 0; i < 12; ++i) {
  var dot = document.createElement('div');
  dot.style.cssText = 'position: absolute; width: 20px; height: 20px';
  dot.style.left = 100 * i + 'px';
  dot.style.top = 50 * i + 'px';
  dots.push(document.body.appendChild(dot));
}
run([
  state(video, 1),
  until('the film has run a while', function() {
    dots.forEach(function(element) { element.textContent = Math.floor(video.playPosition) % 10; });
    return video.playPosition > 1000;
  })
]);
