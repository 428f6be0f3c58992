// The page: what it was given, shown.
const given = JSON.parse(document.getElementById('data').textContent);
document.body.textContent = given.store;
